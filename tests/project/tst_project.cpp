// The model record and the project file: the bytes we write, decoded with
// zlib by hand; files built from the documented layout and what every load
// (good or damaged) leaves in the model; which files each save situation
// leaves behind; the range, row-check, path and fixed-width text rules.
#include "support/testsupport.h"

#include "core/model/chartmodel.h"
#include "core/model/fixedstring.h"
#include "core/project/projectfile.h"
#include "core/project/projectpaths.h"

#include <QBuffer>
#include <QDir>
#include <QLockFile>
#include <QtTest>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <cstring>
#include <memory>

using namespace qv;
using qvtest::item;

namespace {

constexpr int kStore = 4194312;
constexpr int kModes = 262148;
const QString kNoProject = QStringLiteral("File is no Quorvanta project!");
const QString kDamaged = QStringLiteral("Error in Quorvanta project!");

QByteArray raw(const void *p, int size)
{
    return QByteArray(static_cast<const char *>(p), size);
}
QByteArray zeros(int size)
{
    return item(QByteArray(size, '\0'));
}

// n data sets of distinct, partly missing values.
std::unique_ptr<ChartModel> makeModel(int n, bool modes, int samples = 50)
{
    auto m = std::make_unique<ChartModel>();
    m->settings.dataSetCount = n;
    m->settings.hasModeData = modes;
    m->settings.rangeEnd = 3000000;
    for (int i = 0; i < n; ++i) {
        for (int k = 0; k < samples; ++k) {
            m->data(i)->time[k] = qint64(k) * 60000;
            m->data(i)->value[k] = (k % 17 == 5) ? kMissingValue : 20.0 + i + k * 0.125;
            m->modeCodes()->code[k] = qint8(k % 13);
        }
        m->data(i)->count = samples;
    }
    m->modeCodes()->count = modes ? samples : 0;
    return m;
}

QByteArray saveToBytes(ChartModel &model, quint32 changedTime = 1234567)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    SaveOptions o;
    o.changedTime = changedTime;
    return g_writeProject(model, buffer, o).ok ? buffer.data() : QByteArray();
}

FileResult loadBytes(ChartModel &model, QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return g_readProject(model, buffer, ProgressFn());
}

QByteArray magic(char minor)
{
    return item(QByteArray("Quorvanta Project - (C)2016 Merovin GmbH V1.x.000RS").replace('x', minor));
}

// A project file around a payload, compressed by zlib itself.
QByteArray fileOf(const QByteArray &payload, char minor = '4')
{
    uLongf size = compressBound(uLong(payload.size()));
    QByteArray out(int(size), Qt::Uninitialized);
    compress2(reinterpret_cast<Bytef *>(out.data()), &size, reinterpret_cast<const Bytef *>(payload.constData()),
              uLong(payload.size()), 9);
    return magic(minor) + item(qvtest::bigEndian32(quint32(payload.size())) + out.left(int(size)));
}

// The decompressed payload of a file, read with zlib directly.
QByteArray payloadOf(const QByteArray &file)
{
    uLongf size = qFromBigEndian<quint32>(file.constData() + 59);
    QByteArray out(int(size), Qt::Uninitialized);
    const int rc = uncompress(reinterpret_cast<Bytef *>(out.data()), &size,
                              reinterpret_cast<const Bytef *>(file.constData()) + 63, uLong(file.size() - 63));
    return rc == Z_OK ? out.left(int(size)) : QByteArray();
}

// A settings record: set 1 hidden, a range, a sample count to be recounted.
QByteArray settingsItem(int dataSetCount, bool modes, qint64 rangeBegin = 0, qint64 rangeEnd = 0)
{
    settingsT s;
    g_initSettings(s, 99);
    s.dataSetCount = dataSetCount;
    s.hasModeData = modes;
    s.lineFlags[1] = 0;
    s.rangeBegin = rangeBegin;
    s.rangeEnd = rangeEnd;
    s.rangeSampleCount = 999;
    return item(raw(&s, 2048));
}

// A store of `count` samples at 1000, 2000, ... ms with values 0, 1.5, 3, ...
QByteArray storeItem(qint32 count)
{
    QByteArray store(kStore, '\0');
    std::memcpy(store.data(), &count, 4);
    for (int k = 0; k < count; ++k) {
        const qint64 t = 1000 * (k + 1);
        const double v = 1.5 * k;
        std::memcpy(store.data() + 8 + 8 * k, &t, 8);
        std::memcpy(store.data() + 0x200008 + 8 * k, &v, 8);
    }
    return item(store);
}

// A mode track of `count` codes followed by the parameters (interval 60 s).
QByteArray modesItems(qint32 count, const QByteArray &codes)
{
    QByteArray track(kModes, '\0'), parameters(256, '\0');
    std::memcpy(track.data(), &count, 4);
    parameters[104] = 60;
    return item(track.replace(4, codes.size(), codes)) + item(parameters);
}

// The outcome ("!" when critical), then the data sets, each row in use
// (+ ticked) with its count and last sample, the view, flags, mode box,
// interval and first codes.
QString summary(const FileResult &r, ChartModel &m)
{
    QString s = r.ok ? QStringLiteral("ok") : QString::fromLatin1(r.message) + QLatin1String(r.critical() ? "!" : "");
    s += QStringLiteral(" | %1 sets ").arg(m.settings.dataSetCount);
    for (int i = 0; i < kMaxDataSets; ++i) {
        const _chartDataType &d = *m.data(i);
        if (m.row[i].enabled)
            s += QString::asprintf("%c%d@%lld=%g ", m.row[i].checked ? '+' : '-', d.count,
                                   d.count > 0 ? d.time[d.count - 1] : 0, d.count > 0 ? d.value[d.count - 1] : 0);
    }
    s += QString::asprintf("view %lld-%lld (%d) flags %u", m.settings.viewBegin, m.settings.viewEnd,
                           m.settings.rangeSampleCount, m.settings.flags);
    if (m.modeBoxVisible)
        s += QStringLiteral(" modes%1 i%2:").arg(m.modeBoxChecked ? '+' : '-').arg(m.modeParameters()->interval);
    for (int k = 0; m.modeBoxVisible && k < 7; ++k)
        s += QLatin1Char(' ') + QString::number(m.modeCodes()->code[k]);
    return s;
}

enum Situation {
    NewFile,
    OverOld,
    ReadOnlyFolder,
    LimitHitsProject,
    LimitHitsBackup,
    InUse,
    Fifo,
    Folder,
    BackupIsLink
};

// Saves in a child process as the programs do (SIGXFSZ ignored), under the
// situation's file-size limit or as an ordinary user; the child's exit code
// is the message's index in saveTexts, 9 when root rights stay.
const QStringList saveTexts{QStringLiteral("ok"), QStringLiteral("Error while writing file!"),
                            QStringLiteral("The project is in use by another program!")};
int saveInChild(ChartModel &model, const QString &path, int situation)
{
    const pid_t pid = ::fork();
    if (pid == 0) {
        if (situation == ReadOnlyFolder && ::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
            ::_exit(9);
        const rlimit limit{64 * 1024, 64 * 1024};
        if (situation == LimitHitsProject || situation == LimitHitsBackup)
            ::setrlimit(RLIMIT_FSIZE, &limit);
        g_ignoreFileSizeSignal();
        SaveOptions options;
        options.changedTime = 2;
        options.lockWaitMs = 200;
        const FileResult r = g_saveProjectFile(model, path, options);
        ::_exit(int(saveTexts.indexOf(r.ok ? saveTexts.at(0) : QString::fromLatin1(r.message))));
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 100 + WTERMSIG(status);
}

}  // namespace

class TestProject : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip_data();
    void roundTrip();
    void loads_data();
    void loads();
    void saveSituations_data();
    void saveSituations();
    void missingMarker_data();
    void missingMarker();
    void rowChecks_data();
    void rowChecks();
    void fixedWidthText_data();
    void fixedWidthText();
};

void TestProject::roundTrip_data()
{
    // clang-format off
    QTest::addColumn<int>("dataSets");
    QTest::addColumn<bool>("modes");
    QTest::addColumn<int>("samples");
    QTest::newRow("no data sets") << 0 << false << 0;
    QTest::newRow("sixteen full stores") << 16 << true << kMaxSamples;
    // clang-format on
}

// The bytes written, decoded with zlib by hand against the documented
// layout; loading gives back every store, and from then on save -> load ->
// save gives the same bytes (loading sets the view to the range).
void TestProject::roundTrip()
{
    QFETCH(int, dataSets);
    QFETCH(bool, modes);
    QFETCH(int, samples);
    auto original = makeModel(dataSets, modes, samples);
    const QByteArray file = saveToBytes(*original, 0x01020304);
    QCOMPARE(file.left(55), magic('4'));
    QCOMPARE(int(qFromBigEndian<quint32>(file.constData() + 55)), file.size() - 59);  // nothing follows
    QByteArray expected = item(raw(&original->settings, 2048));
    for (int i = 0; i < dataSets; ++i)
        expected += item(raw(original->data(i), kStore));
    if (modes)
        expected += item(raw(original->modeCodes(), kModes)) + item(raw(original->modeParameters(), 256));
    const QByteArray payload = payloadOf(file);
    QV_COMPARE_BYTES(payload, expected);
    QCOMPARE(payload.mid(4 + 24, 4), QByteArray("\x04\x03\x02\x01", 4));  // changed time, little-endian

    auto loaded = std::make_unique<ChartModel>();
    QVERIFY(loadBytes(*loaded, file).ok);
    const QByteArray second = saveToBytes(*loaded);
    QV_COMPARE_BYTES(payloadOf(second).mid(2052), payload.mid(2052));
    auto again = std::make_unique<ChartModel>();
    QVERIFY(loadBytes(*again, second).ok);
    QV_COMPARE_BYTES(saveToBytes(*again), second);
}

void TestProject::loads_data()
{
    // clang-format off
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected");  // summary() after loading into an empty model
    const QString none = QStringLiteral(" | 0 sets view 0-0 (0) flags 1");
    const QString store0 = QStringLiteral(" | 2 sets +3@3000=3 view 0-0 (999) flags 1");
    const QString one = QStringLiteral("ok | 1 sets +50@2940000=26.125 view 0-3000000 (50) flags 1");
    const QByteArray two = settingsItem(2, false), modes = settingsItem(0, true);
    const QByteArray good = payloadOf(saveToBytes(*makeModel(1, false)));
    // The size in front of the stream is only a hint.
    const QByteArray badHint = fileOf(good).replace(59, 4, QByteArray("\0\0\0\1", 4));
    QByteArray tail = fileOf(two + zeros(kStore) + zeros(kStore) + QByteArray(5000, 'z'));
    tail[tail.size() - 3] = char(tail.at(tail.size() - 3) ^ 0x55);  // breaks the checksum

    QTest::newRow("hand-built 1.4 file: codes kept, view = range, recounted")
        << fileOf(settingsItem(2, true, 2000, 4000) + storeItem(5) + storeItem(0) + modesItems(3, QByteArray("\x0c\x00\x0a", 3)))
        << "ok | 2 sets +5@5000=6 -0@0=0 view 2000-4000 (3) flags 3 modes+ i60: 12 0 10 0 0 0 0";
    QTest::newRow("1.3 file: codes 10 and 12 raised, up to the count")
        << fileOf(modes + modesItems(6, QByteArray("\x09\x0a\x0c\x00\xfd\x7f\x0a", 7)), '3')
        << "ok | 0 sets view 0-0 (0) flags 3 modes+ i60: 9 11 13 0 -3 -128 10";
    QTest::newRow("1.3 file with a hostile count") << fileOf(modes + modesItems(0x7fffffff, "\x0a"), '3') << "ok | 0 sets view 0-0 (0) flags 3 modes+ i60: 11 0 0 0 0 0 0";
    QTest::newRow("bytes after the items and the file") << fileOf(good + "extra") + "trailing" << one;
    QTest::newRow("size hint wrong") << badHint << one;
    QTest::newRow("empty file") << QByteArray() << kNoProject + none;
    QTest::newRow("magic with a trailing blank") << item(magic('4').mid(4) + ' ') << kNoProject + none;
    QTest::newRow("version 1.5") << fileOf(good, '5') << kNoProject + none;
    QTest::newRow("no payload item") << magic('4') << kDamaged + none;
    QTest::newRow("payload length past the end") << magic('4') + QByteArray(4, '\xf0') + QByteArray(100, 'x') << kDamaged + none;
    QTest::newRow("payload not zlib") << magic('4') + item(qvtest::bigEndian32(2052) + QByteArray(300, 'x')) << kDamaged + none;
    QTest::newRow("settings 2049 bytes") << fileOf(zeros(2049)) << kDamaged + none;
    QTest::newRow("seventeen data sets") << fileOf(settingsItem(17, false)) << kDamaged + QLatin1String(" | 17 sets view 0-0 (999) flags 1");
    QTest::newRow("store missing") << fileOf(two + storeItem(3)) << kDamaged + store0;
    QTest::newRow("store cut inside the stream") << fileOf(two + storeItem(3) + zeros(kStore).left(100)) << kDamaged + store0;
    QTest::newRow("mode parameters wrong length") << fileOf(modes + zeros(kModes) + zeros(255)) << kDamaged + QLatin1String(" | 0 sets view 0-0 (999) flags 1");  // the settings read stay
    QTest::newRow("decompression bomb")  // inflates to far more than any project holds
        << fileOf(two + zeros(kStore) + zeros(kStore) + QByteArray(int(2 * g_payloadSize(16, true)), '\0'))
        << kDamaged + none;
    QTest::newRow("checksum broken after the items") << tail << kDamaged + none;
    // clang-format on
}

void TestProject::loads()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, expected);
    auto model = std::make_unique<ChartModel>();
    QCOMPARE(summary(loadBytes(*model, file), *model), expected);
}

void TestProject::saveSituations_data()
{
    // clang-format off
    // expected: the message, then every entry of the folder afterwards: N the
    // new project, O the old file byte for byte, P the previous backup, d a
    // folder, k another kind of non-file (a FIFO).
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("situation");
    QTest::addColumn<QString>("expected");
    const QString error = saveTexts.at(1);
    QTest::newRow("new file") << "a.qvj" << int(NewFile) << "ok | a.qvj=N";
    QTest::newRow("over an older project") << "b.QVJ" << int(OverOld) << "ok | b.QVJ=N b.bak=O";
    QTest::newRow("name ending in .bak") << "x.bak" << int(OverOld) << "ok | x.bak=N x.bak.bak=O";
    QTest::newRow("hidden name") << ".qvj" << int(OverOld) << "ok | .qvj=N .qvj.bak=O";
    QTest::newRow("writable file in a read-only folder") << "plain" << int(ReadOnlyFolder) << error + QLatin1String(" | plain=O plain.bak=P");
    QTest::newRow("size limit hit by the project") << "a.qvj" << int(LimitHitsProject) << error + QLatin1String(" | a.bak=O a.qvj=O");
    QTest::newRow("size limit hit by the backup") << "a.qvj" << int(LimitHitsBackup) << error + QLatin1String(" | a.bak=P a.qvj=O");
    QTest::newRow("saved by another program") << "a.qvj" << int(InUse) << saveTexts.at(2) + QLatin1String(" | a.bak=P a.qvj=O");
    QTest::newRow("backup a link to another file") << "a.qvj" << int(BackupIsLink) << "ok | a.bak=O a.qvj=N other=P";
    QTest::newRow("FIFO") << "a.qvj" << int(Fifo) << error + QLatin1String(" | a.qvj=k");
    QTest::newRow("folder") << "a.qvj" << int(Folder) << error + QLatin1String(" | a.qvj=d");
    // clang-format on
}

void TestProject::saveSituations()
{
    QFETCH(QString, name);
    QFETCH(int, situation);
    QFETCH(QString, expected);
    QTemporaryDir dir;
    QVERIFY(QFile::setPermissions(dir.path(), QFile::Permissions(0x7755)));  // an ordinary user may enter
    const QString folder = dir.filePath(QStringLiteral("p")), path = folder + QLatin1Char('/') + name;
    QVERIFY(QDir().mkdir(folder));
    auto model = makeModel(situation == LimitHitsProject ? 2 : 1, false, kMaxSamples);
    for (int k = 0; situation == LimitHitsProject && k < kMaxSamples; ++k)  // values that do not compress away
        model->data(1)->value[k] = double((k * 2654435761u) % 100003) / 7.0;
    const QByteArray old =
        situation == LimitHitsBackup ? QByteArray(100 * 1024, 'o') : saveToBytes(*makeModel(2, true), 1);
    const QByteArray previous("previous backup");
    if (situation == Fifo)
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0666), 0);
    else if (situation == Folder)
        QVERIFY(QDir().mkdir(path));
    else if (situation == BackupIsLink)  // the old backup's place holds a link to an unrelated file
        QVERIFY(qvtest::writeFile(path, old) && qvtest::writeFile(folder + QStringLiteral("/other"), previous) &&
                QFile::link(QStringLiteral("other"), g_backupPath(path)));
    else if (situation != NewFile)
        QVERIFY(qvtest::writeFile(path, old) && qvtest::writeFile(g_backupPath(path), previous));
    QLockFile otherSaver(path + QStringLiteral(".lock"));
    QVERIFY(situation != InUse || otherSaver.lock());
    if (situation == ReadOnlyFolder)  // the files themselves stay writable for an ordinary user
        QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x6666)) &&
                QFile::setPermissions(g_backupPath(path), QFile::Permissions(0x6666)) &&
                QFile::setPermissions(folder, QFile::Permissions(0x5555)));
    const int result = saveInChild(*model, path, situation);
    QFile::setPermissions(folder, QFile::Permissions(0x7755));
    otherSaver.unlock();
    if (result == 9)
        QSKIP("running as root and cannot change to an ordinary user: a read-only folder stops nobody");
    QVERIFY2(result < saveTexts.size(), qPrintable(QStringLiteral("child ended with %1").arg(result)));
    // No temporary file, lock file or stray backup may be left behind.
    QString found = saveTexts.at(result) + QStringLiteral(" |");
    const QByteArray saved = saveToBytes(*model, 2);
    for (const QFileInfo &entry : QDir(folder).entryInfoList(
             QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)) {
        const QByteArray bytes = entry.isFile() ? qvtest::readFile(entry.filePath()) : QByteArray();
        found += QStringLiteral(" %1=%2")
                     .arg(entry.fileName())
                     .arg(entry.isDir()       ? 'd'
                          : !entry.isFile()   ? 'k'
                          : bytes == saved    ? 'N'
                          : bytes == old      ? 'O'
                          : bytes == previous ? 'P'
                                              : '?');
    }
    QCOMPARE(found, expected);
}

void TestProject::missingMarker_data()
{
    // clang-format off
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("missing");
    QTest::newRow("marker") << 3131961357.0 << true;
    QTest::newRow("marker plus a fraction truncates to it") << 3131961357.75 << true;
    QTest::newRow("one below") << 3131961356.999 << false;
    QTest::newRow("next integer") << 3131961358.0 << false;
    QTest::newRow("negative with the marker's low bits") << -1163005939.0 << true;
    QTest::newRow("negative, truncated toward zero") << -1163005938.5 << false;
    QTest::newRow("huge") << 1e300 << false;
    // clang-format on
}

// A value is missing when its integer part has the marker's low 32 bits.
void TestProject::missingMarker()
{
    QFETCH(double, value);
    QFETCH(bool, missing);
    QCOMPARE(g_isMissing(value), missing);
}

void TestProject::rowChecks_data()
{
    // clang-format off
    // Bit i of a mask stands for data set i.
    QTest::addColumn<int>("dataSets");
    QTest::addColumn<int>("shown");   // line flags with kLineShown before
    QTest::addColumn<int>("ticked");  // row boxes the user left ticked
    QTest::addColumn<bool>("modeBox");
    QTest::addColumn<int>("after");   // shown lines, and ticked boxes, afterwards
    QTest::addColumn<quint32>("flags");
    QTest::newRow("untick the last shown brings back the first") << 3 << 0b010 << 0b000 << false << 0b001 << 1u;
    QTest::newRow("only newly ticked: none still shown") << 2 << 0b001 << 0b010 << true << 0b011 << 3u;
    // clang-format on
}

void TestProject::rowChecks()
{
    QFETCH(int, dataSets);
    QFETCH(int, shown);
    QFETCH(int, ticked);
    QFETCH(bool, modeBox);
    QFETCH(int, after);
    QFETCH(quint32, flags);
    auto model = std::make_unique<ChartModel>();
    settingsT &s = model->settings;
    s.dataSetCount = dataSets;
    for (int i = 0; i < dataSets; ++i) {
        s.lineFlags[i] = (shown >> i & 1 ? kLineShown : 0u) | 6u;
        model->row[i].checked = ticked >> i & 1;
    }
    model->modeBoxChecked = modeBox;
    model->applyRowChecks();
    int shownAfter = 0, tickedAfter = 0;
    for (int i = 0; i < dataSets; ++i) {
        shownAfter |= s.lineFlags[i] & kLineShown ? 1 << i : 0;
        tickedAfter |= model->row[i].checked ? 1 << i : 0;
    }
    QCOMPARE(shownAfter, after);
    QCOMPARE(tickedAfter, after);
    QCOMPARE(s.flags, flags);
    QCOMPARE(s.lineFlags[15], 1u);  // rows beyond the data sets keep their flags
}

enum Writer { Terminated, Unterminated, FromChars };  // g_qString2Buffer, g_qString2BufferWO0, g_char2Buffer

void TestProject::fixedWidthText_data()
{
    // clang-format off
    QTest::addColumn<int>("writer");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("text");       // null: no text at all
    QTest::addColumn<QByteArray>("field");   // the field and the two guard bytes after it
    QTest::addColumn<QString>("readBack");   // g_buffer2QString of an accepted field
    QTest::newRow("width 1") << int(Terminated) << 1 << "abc" << QByteArray("\0UU", 3) << "";
    QTest::newRow("char terminated") << int(FromChars) << 4 << "abcdefgh" << QByteArray("abc\0UU", 6) << "abc";
    QTest::newRow("no text clears the field") << int(FromChars) << 8 << QString() << QByteArray("\0\0\0\0\0\0\0\0UU", 10) << "";
    QTest::newRow("width 0 is ignored") << int(FromChars) << 0 << "a" << QByteArray("UU") << "";
    QTest::newRow("negative width is ignored") << int(Unterminated) << -1 << "a" << QByteArray("UU") << "";
    QTest::newRow("wider than 65536 is ignored") << int(FromChars) << 65537 << "a" << QByteArray(65539, 'U') << "";
    QTest::newRow("the widest allowed") << int(Terminated) << 65536 << "ab" << QByteArray("ab") + QByteArray(65534, '\0') + "UU" << "ab";
    // clang-format on
}

void TestProject::fixedWidthText()
{
    QFETCH(int, writer);
    QFETCH(int, width);
    QFETCH(QString, text);
    QFETCH(QByteArray, field);
    QFETCH(QString, readBack);
    const QByteArray latin1 = text.toLatin1();
    QByteArray written(qBound(0, width, 65537) + 2, 'U');
    for (char *to : {static_cast<char *>(nullptr), written.data()})  // no destination: nothing happens
        writer == Terminated     ? g_qString2Buffer(to, text, width)
        : writer == Unterminated ? g_qString2BufferWO0(to, text, width)
                                 : g_char2Buffer(to, text.isNull() ? nullptr : latin1.constData(), width);
    QV_COMPARE_BYTES(written, field);
    if (width <= 65536)
        QCOMPARE(g_buffer2QString(written.constData(), width), readBack);
}

QTEST_GUILESS_MAIN(TestProject)
#include "tst_project.moc"
