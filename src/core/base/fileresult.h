// What became of reading or writing a file, and the message texts that every
// reader and writer of the core shares (English source texts; the programs
// translate them in the context of the core's texts).
#pragma once

namespace qv {

extern const char *const kMsgReadError;   // "Error reading file!"
extern const char *const kMsgWriteError;  // "Error while writing file!"

// What went wrong with a file; the widgets choose their message box by it.
enum class FileError {
    None,
    CannotOpen,    // cannot be opened, or is no regular file: a critical box
    CannotWrite,   // cannot be written: a critical box
    BadContents,   // read, but its contents are wrong: a warning
    SiblingFiles,  // a sibling file of a sampling is wrong: the sibling error exit
};

struct FileResult {
    bool ok = true;
    const char *message = nullptr;  // the exact user text (English source) when !ok
    FileError error = FileError::None;

    bool critical() const { return error == FileError::CannotOpen || error == FileError::CannotWrite; }
    static FileResult failure(const char *text, FileError kind) { return FileResult{false, text, kind}; }
};

}  // namespace qv
