// Project file: the bytes we write, files built by hand from the documented
// layout, every failure with its text, and which file survives each save
// situation (backups, read-only folders, size limits, locks, odd targets).
#include "support/testsupport.h"

#include "project/chartmodel.h"
#include "project/fixedstring.h"
#include "project/projectfile.h"
#include "project/projectpaths.h"

#include <QBuffer>
#include <QDir>
#include <QtTest>

#include <QLockFile>

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <cstring>
#include <memory>

using namespace qv;
using qvtest::bigEndian32;
using qvtest::item;

namespace {

constexpr int kStore = 4194312;
constexpr int kModes = 262148;

QByteArray rawBytes(const void *p, int size)
{
    return QByteArray(static_cast<const char *>(p), size);
}

// A model with n data sets of distinct, partly missing values.
std::unique_ptr<ChartModel> makeModel(int n, bool modes, int samples = 50)
{
    auto m = std::make_unique<ChartModel>();
    settingsT &s = m->settings;
    s.dataSetCount = n;
    g_qString2Buffer(s.description, QStringLiteral("Keller \u00D6stlich"), kDescriptionWidth);
    for (int i = 0; i < n; ++i) {
        g_qString2Buffer(s.name[i], QStringLiteral("Set %1").arg(i), kNameWidth);
        g_qString2Buffer(s.unit[i], QStringLiteral("\u00B0C"), kUnitWidth);
        s.decimals[i] = quint8(i % 3);
        s.axisMin[i] = -10.5 - i;
        s.axisMax[i] = 40.25 + i;
        s.valueType[i] = 8;
        _chartDataType &d = *m->data(i);
        d.count = samples;
        for (int k = 0; k < samples; ++k) {
            d.time[k] = 1700000000000 + qint64(k) * 60000;
            d.value[k] = (k % 17 == 5) ? kMissingValue : 20.0 + i + k * 0.125;
        }
    }
    s.lineFlags[1] = 2;  // second data set hidden
    s.firstTime = s.rangeBegin = 1700000000000;
    s.lastTime = 1700000000000 + qint64(samples - 1) * 60000;
    s.rangeEnd = s.lastTime - 60000;
    s.viewBegin = 1;
    s.viewEnd = 2;
    s.sampleInterval = 60;
    if (modes) {
        s.hasModeData = 1;
        m->modeCodes()->count = samples;
        for (int k = 0; k < samples; ++k)
            m->modeCodes()->code[k] = qint8(k % 13);
        m->modeParameters()->parameter[0] = 55.5;
        m->modeParameters()->intParameter[0] = 15;
        m->modeParameters()->interval = 60;
    }
    return m;
}

SaveOptions fixedTime(quint32 t)
{
    SaveOptions o;
    o.changedTime = t;
    return o;
}

QByteArray saveToBytes(ChartModel &model, quint32 changedTime = 1234567)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const FileResult r = g_writeProject(model, buffer, fixedTime(changedTime));
    return r.ok ? buffer.data() : QByteArray();
}

FileResult loadBytes(ChartModel &model, const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return g_readProject(model, buffer, ProgressFn());
}

QByteArray zlibCompress(const QByteArray &payload, int level)
{
    uLongf size = compressBound(uLong(payload.size()));
    QByteArray out(int(size), Qt::Uninitialized);
    if (compress2(reinterpret_cast<Bytef *>(out.data()), &size,
                  reinterpret_cast<const Bytef *>(payload.constData()), uLong(payload.size()), level) != Z_OK)
        return QByteArray();
    out.resize(int(size));
    return bigEndian32(quint32(payload.size())) + out;
}

QByteArray magic14() { return item(QByteArrayLiteral("Quorvanta Project - (C)2016 Merovin GmbH V1.4.000RS")); }
QByteArray magic13() { return item(QByteArrayLiteral("Quorvanta Project - (C)2016 Merovin GmbH V1.3.000RS")); }

// A project file assembled from payload items, compressed as the original writer did.
QByteArray fileFromItems(const QByteArray &payload, const QByteArray &magic = magic14())
{
    return magic + item(zlibCompress(payload, 9));
}

// The decompressed payload of a file, read with zlib directly.
QByteArray payloadOf(const QByteArray &file)
{
    if (file.size() < 55 + 8)
        return QByteArray();
    const QByteArray block = file.mid(55 + 4);
    const uchar *b = reinterpret_cast<const uchar *>(block.constData());
    uLongf size = (uLongf(b[0]) << 24) | (uLongf(b[1]) << 16) | (uLongf(b[2]) << 8) | b[3];
    QByteArray out(int(size), Qt::Uninitialized);
    if (uncompress(reinterpret_cast<Bytef *>(out.data()), &size, b + 4, uLong(block.size() - 4)) != Z_OK)
        return QByteArray();
    out.resize(int(size));
    return out;
}

settingsT settingsFor(int dataSetCount, bool modes)
{
    settingsT s;
    g_initSettings(s, 99);
    s.dataSetCount = dataSetCount;
    s.hasModeData = modes ? 1 : 0;
    return s;
}

// A device that accepts the first `room` bytes and then fails, like a full disk.
class FullDevice : public QIODevice
{
public:
    explicit FullDevice(qint64 room) : m_room(room) { open(QIODevice::WriteOnly); }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 len) override
    {
        if (m_written + len > m_room)
            return -1;
        m_written += len;
        return len;
    }

private:
    qint64 m_room;
    qint64 m_written = 0;
};


// What kind of thing is at path: 'f' file, 'd' folder, 'p' FIFO, 's' socket, '-' nothing.
char kindOf(const QString &path)
{
    struct stat st {};
    if (::lstat(QFile::encodeName(path).constData(), &st) != 0)
        return '-';
    return S_ISREG(st.st_mode) ? 'f' : S_ISDIR(st.st_mode) ? 'd' : S_ISFIFO(st.st_mode) ? 'p' : S_ISSOCK(st.st_mode) ? 's' : '?';
}

enum Situation { NewFile, OverOld, ReadOnlyFolder, LimitHitsProject, LimitHitsBackup, InUse, Fifo, Socket, Folder };

// Saves in a child process, as the programs do (SIGXFSZ ignored), under the
// situation's file-size limit or without root rights. Returns the index of
// the message in saveTexts, or 9 when root rights could not be dropped.
const QStringList saveTexts{QString(), QStringLiteral("Error while writing file!"),
                            QStringLiteral("The project is in use by another program!")};
int saveInChild(ChartModel &model, const QString &path, int situation)
{
    const pid_t pid = ::fork();
    if (pid == 0) {
        if (situation == ReadOnlyFolder && ::geteuid() == 0) {
            // Root writes anywhere: the read-only folder needs an ordinary user.
            if (::setgid(65534) != 0 || ::setuid(65534) != 0)
                ::_exit(9);
        }
        if (situation == LimitHitsProject || situation == LimitHitsBackup) {
            const rlimit limit{64 * 1024, 64 * 1024};
            ::setrlimit(RLIMIT_FSIZE, &limit);
        }
        g_ignoreFileSizeSignal();
        SaveOptions options = fixedTime(2);
        options.lockWaitMs = 200;
        const FileResult r = g_saveProjectFile(model, path, options);
        ::_exit(int(saveTexts.indexOf(r.ok ? QString() : QString::fromLatin1(r.message))));
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 100 + WTERMSIG(status);
}

}  // namespace

class TestProjectFile : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip_data();
    void roundTrip();
    void writerOutputDecodesByHand();
    void handBuiltFileLoads();
    void version13RaisesCodes();
    void loadFailures_data();
    void loadFailures();
    void failedLoadKeepsWhatWasRead();
    void toleratedOddities();
    void progressRuns();
    void writeErrorsAreReported_data();
    void writeErrorsAreReported();
    void saveSituations_data();
    void saveSituations();
    void pathRules_data();
    void pathRules();
};

void TestProjectFile::roundTrip_data()
{
    QTest::addColumn<int>("dataSets");
    QTest::addColumn<bool>("modes");
    QTest::addColumn<int>("samples");
    QTest::newRow("no data sets") << 0 << false << 0;
    QTest::newRow("three data sets") << 3 << false << 50;
    QTest::newRow("with mode data") << 6 << true << 50;
    QTest::newRow("sixteen full stores") << 16 << true << kMaxSamples;
}

void TestProjectFile::roundTrip()
{
    QFETCH(int, dataSets);
    QFETCH(bool, modes);
    QFETCH(int, samples);
    auto original = makeModel(dataSets, modes, samples);
    const QByteArray first = saveToBytes(*original);
    QVERIFY(!first.isEmpty());

    auto loaded = std::make_unique<ChartModel>();
    QVERIFY(loadBytes(*loaded, first).ok);
    QCOMPARE(loaded->settings.dataSetCount, dataSets);
    for (int i = 0; i < dataSets; ++i) {
        QVERIFY(std::memcmp(loaded->data(i), original->data(i), kStore) == 0);
        QVERIFY(loaded->row[i].enabled);
        QCOMPARE(loaded->row[i].checked, i != 1);
    }
    for (int i = dataSets; i < kMaxDataSets; ++i)
        QVERIFY(!loaded->row[i].enabled);
    QCOMPARE(loaded->modeBoxVisible, modes);

    // Loading sets the view to the range and recounts it; from then on
    // save -> load -> save gives the same bytes.
    const QByteArray second = saveToBytes(*loaded);
    auto again = std::make_unique<ChartModel>();
    QVERIFY(loadBytes(*again, second).ok);
    QV_COMPARE_BYTES(saveToBytes(*again), second);
}

void TestProjectFile::writerOutputDecodesByHand()
{
    auto model = makeModel(2, true);
    const QByteArray file = saveToBytes(*model, 0x01020304);
    QCOMPARE(model->settings.changedTime, 0x01020304u);

    QCOMPARE(file.left(55), magic14());
    const quint32 blockLength = qFromBigEndian<quint32>(file.constData() + 51 + 4);
    QCOMPARE(int(blockLength), file.size() - 59);  // nothing follows the block

    const QByteArray payload = payloadOf(file);
    QCOMPARE(qint64(payload.size()), qint64(4 + 2048 + 2 * (4 + kStore) + 4 + kModes + 4 + 256));
    QCOMPARE(qint64(payload.size()), g_payloadSize(2, true));
    // The header of the compressed block holds the uncompressed size.
    QCOMPARE(qFromBigEndian<quint32>(file.constData() + 59), quint32(payload.size()));

    QByteArray expected = item(rawBytes(&model->settings, 2048));
    expected += item(rawBytes(model->data(0), kStore));
    expected += item(rawBytes(model->data(1), kStore));
    expected += item(rawBytes(model->modeCodes(), kModes));
    expected += item(rawBytes(model->modeParameters(), 256));
    QV_COMPARE_BYTES(payload, expected);
    // The changed time sits at offset 24 of the settings record, little-endian.
    QCOMPARE(payload.mid(4 + 24, 4), QByteArray("\x04\x03\x02\x01", 4));

    // Qt's own reader takes the block as well.
    QCOMPARE(qUncompress(file.mid(59)), payload);
}

void TestProjectFile::handBuiltFileLoads()
{
    settingsT s = settingsFor(2, true);
    std::memcpy(s.name[0], "Temp Au\xDF" "en", 10);
    s.lineFlags[0] = 7;
    s.lineFlags[1] = 0;
    s.rangeBegin = 2000;
    s.rangeEnd = 4000;
    s.viewBegin = 1;
    s.viewEnd = 2;
    s.rangeSampleCount = 999;  // recounted on load

    QByteArray store(kStore, '\0');
    const qint32 count = 5;
    std::memcpy(store.data(), &count, 4);
    for (int k = 0; k < 5; ++k) {
        const qint64 t = 1000 * (k + 1);
        const double v = 1.5 * k;
        std::memcpy(store.data() + 8 + 8 * k, &t, 8);
        std::memcpy(store.data() + 0x200008 + 8 * k, &v, 8);
    }
    QByteArray modes(kModes, '\0');
    modes[0] = 3;
    modes[4] = 12;
    modes[6] = 10;
    QByteArray params(256, '\0');
    const double p1 = 65.0;
    std::memcpy(params.data(), &p1, 8);
    params[104] = 60;

    const QByteArray payload = item(rawBytes(&s, 2048)) + item(store) + item(QByteArray(kStore, '\0')) +
                               item(modes) + item(params);
    auto model = std::make_unique<ChartModel>();
    const FileResult r = loadBytes(*model, fileFromItems(payload));
    QVERIFY2(r.ok, r.message);

    QCOMPARE(model->settings.dataSetCount, 2);
    QCOMPARE(g_buffer2QString(model->settings.name[0], kNameWidth), QStringLiteral("Temp Au\u00DFen"));
    QCOMPARE(model->data(0)->count, 5);
    QCOMPARE(model->data(0)->time[4], qint64(5000));
    QCOMPARE(model->data(0)->value[3], 4.5);
    QCOMPARE(model->settings.viewBegin, qint64(2000));
    QCOMPARE(model->settings.viewEnd, qint64(4000));
    QCOMPARE(model->settings.rangeSampleCount, 3);
    QVERIFY(model->row[0].enabled && model->row[0].checked);
    QVERIFY(model->row[1].enabled && !model->row[1].checked);
    QVERIFY(model->modeBoxVisible && model->modeBoxChecked);
    QCOMPARE(model->settings.flags, kFlagShowTitle | kFlagShowModeTrack);
    // Version 1.4 keeps the codes as they are.
    QCOMPARE(int(model->modeCodes()->code[0]), 12);
    QCOMPARE(int(model->modeCodes()->code[2]), 10);
    QCOMPARE(model->modeParameters()->parameter[0], 65.0);
    QCOMPARE(model->modeParameters()->interval, 60);
}

void TestProjectFile::version13RaisesCodes()
{
    settingsT s = settingsFor(0, true);
    QByteArray modes(kModes, '\0');
    const qint32 count = 6;
    std::memcpy(modes.data(), &count, 4);
    const char codes[] = {9, 10, 12, 0, -3, 127, 10 /* beyond count */};
    std::memcpy(modes.data() + 4, codes, sizeof codes);
    const QByteArray payload = item(rawBytes(&s, 2048)) + item(modes) + item(QByteArray(256, '\0'));

    auto model = std::make_unique<ChartModel>();
    QVERIFY(loadBytes(*model, fileFromItems(payload, magic13())).ok);
    const qint8 *c = model->modeCodes()->code;
    QCOMPARE(int(c[0]), 9);
    QCOMPARE(int(c[1]), 11);
    QCOMPARE(int(c[2]), 13);
    QCOMPARE(int(c[3]), 0);
    QCOMPARE(int(c[4]), -3);
    QCOMPARE(int(c[5]), -128);  // a signed byte wraps
    QCOMPARE(int(c[6]), 10);    // past the count: untouched

    // Saved again, it is a 1.4 file with the raised codes.
    const QByteArray again = saveToBytes(*model);
    QCOMPARE(again.left(55), magic14());
    QCOMPARE(int(qint8(payloadOf(again).at(4 + 2048 + 4 + 4 + 1))), 11);

    // A hostile count never reaches past the track.
    std::memcpy(modes.data(), "\xff\xff\xff\x7f", 4);
    auto other = std::make_unique<ChartModel>();
    QVERIFY(loadBytes(*other, fileFromItems(item(rawBytes(&s, 2048)) + item(modes) + item(QByteArray(256, '\0')),
                                            magic13()))
                .ok);
}

void TestProjectFile::loadFailures_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("message");

    const QString noProject = QStringLiteral("File is no Quorvanta project!");
    const QString damaged = QStringLiteral("Error in Quorvanta project!");
    const settingsT empty = settingsFor(0, false);
    const QByteArray settings0 = item(rawBytes(&empty, 2048));
    const settingsT two = settingsFor(2, false);
    const settingsT modes = settingsFor(0, true);
    settingsT seventeen = settingsFor(17, false);

    QByteArray oneByteOff = magic14();
    oneByteOff[20] = 'X';
    QTest::newRow("empty file") << QByteArray() << noProject;
    QTest::newRow("three bytes") << QByteArray("\0\0\0", 3) << noProject;
    QTest::newRow("magic one byte off") << oneByteOff + item(zlibCompress(settings0, 9)) << noProject;
    QTest::newRow("magic with a trailing blank")
        << item(QByteArrayLiteral("Quorvanta Project - (C)2016 Merovin GmbH V1.4.000RS ")) << noProject;
    QTest::newRow("magic cut short") << magic14().left(40) << noProject;
    QTest::newRow("null byte array") << QByteArray("\xff\xff\xff\xff", 4) << noProject;
    QTest::newRow("other version") << item(QByteArrayLiteral("Quorvanta Project - (C)2016 Merovin GmbH V1.5.000RS"))
                                   << noProject;

    QTest::newRow("no payload item") << magic14() << damaged;
    QTest::newRow("payload length past the end") << magic14() + bigEndian32(0xFFFFFFF0u) + QByteArray(100, 'x')
                                                 << damaged;
    QTest::newRow("payload cut short") << fileFromItems(settings0).left(70) << damaged;
    QTest::newRow("payload not zlib") << magic14() + item(bigEndian32(2052) + QByteArray(300, 'x')) << damaged;
    QTest::newRow("payload empty") << magic14() + item(QByteArray(4, '\0')) << damaged;
    QTest::newRow("payload of three bytes") << magic14() + item(QByteArray(3, '\0')) << damaged;
    QTest::newRow("settings 2047 bytes") << fileFromItems(item(QByteArray(2047, '\0'))) << damaged;
    QTest::newRow("settings 2049 bytes") << fileFromItems(item(QByteArray(2049, '\0'))) << damaged;
    QTest::newRow("settings cut inside the stream")
        << fileFromItems(bigEndian32(2048) + QByteArray(1000, '\0')) << damaged;
    QTest::newRow("seventeen data sets") << fileFromItems(item(rawBytes(&seventeen, 2048))) << damaged;
    QTest::newRow("store missing") << fileFromItems(item(rawBytes(&two, 2048)) + item(QByteArray(kStore, '\0')))
                                   << damaged;
    QTest::newRow("store one byte short")
        << fileFromItems(item(rawBytes(&two, 2048)) + item(QByteArray(kStore, '\0')) + item(QByteArray(kStore - 1, '\0')))
        << damaged;
    QTest::newRow("mode codes wrong length")
        << fileFromItems(item(rawBytes(&modes, 2048)) + item(QByteArray(kModes + 1, '\0')) + item(QByteArray(256, '\0')))
        << damaged;
    QTest::newRow("mode parameters wrong length")
        << fileFromItems(item(rawBytes(&modes, 2048)) + item(QByteArray(kModes, '\0')) + item(QByteArray(255, '\0')))
        << damaged;
    QTest::newRow("mode parameters missing")
        << fileFromItems(item(rawBytes(&modes, 2048)) + item(QByteArray(kModes, '\0'))) << damaged;

    // A stream that would inflate to far more than any project holds.
    QByteArray bomb = item(rawBytes(&two, 2048)) + item(QByteArray(kStore, '\0')) + item(QByteArray(kStore, '\0'));
    bomb += QByteArray(int(2 * g_payloadSize(16, true)), '\0');
    QTest::newRow("decompression bomb") << fileFromItems(bomb) << damaged;

    // The stream is damaged after the last item.
    QByteArray tail = fileFromItems(item(rawBytes(&two, 2048)) + item(QByteArray(kStore, '\0')) +
                                    item(QByteArray(kStore, '\0')) + QByteArray(5000, 'z'));
    tail[tail.size() - 3] = char(tail.at(tail.size() - 3) ^ 0x55);  // breaks the checksum
    QTest::newRow("checksum broken after the items") << tail << damaged;
}

void TestProjectFile::loadFailures()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, message);
    auto model = std::make_unique<ChartModel>();
    const FileResult r = loadBytes(*model, file);
    QVERIFY(!r.ok);
    QCOMPARE(QString::fromLatin1(r.message), message);
    QVERIFY(!r.critical());  // content errors are warnings

    // Through a real file the result is the same.
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("bad.qvj"));
    QVERIFY(qvtest::writeFile(path, file));
    auto other = std::make_unique<ChartModel>();
    QCOMPARE(QString::fromLatin1(g_loadProjectFile(*other, path, ProgressFn()).message), message);
}

void TestProjectFile::failedLoadKeepsWhatWasRead()
{
    auto model = std::make_unique<ChartModel>();
    const QByteArray missing = QDir::temp().filePath(QStringLiteral("no-such-dir-qv/none.qvj")).toUtf8();
    FileResult r = g_loadProjectFile(*model, QString::fromUtf8(missing), ProgressFn());
    QCOMPARE(QString::fromLatin1(r.message), QStringLiteral("Error reading file!"));
    QVERIFY(r.critical());
    // Only regular files are read: a FIFO would block, a folder reads as nothing.
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("fifo.qvj"));
    QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0666), 0);
    for (const QString &path : {fifo, dir.path()})
        QCOMPARE(QString::fromLatin1(g_loadProjectFile(*model, path, ProgressFn()).message),
                 QStringLiteral("Error reading file!"));

    // Store 0 arrives, store 1 is cut: settings and store 0 stay, row 0 is active.
    auto source = makeModel(2, false);
    const QByteArray full = payloadOf(saveToBytes(*source));
    const QByteArray cut = full.left(4 + 2048 + 4 + kStore + 4 + 100);
    r = loadBytes(*model, fileFromItems(cut));
    QCOMPARE(QString::fromLatin1(r.message), QStringLiteral("Error in Quorvanta project!"));
    QCOMPARE(model->settings.dataSetCount, 2);
    QVERIFY(std::memcmp(model->data(0), source->data(0), kStore) == 0);
    QVERIFY(model->row[0].enabled);
    QVERIFY(!model->row[1].enabled);
}

void TestProjectFile::toleratedOddities()
{
    // Bytes after the payload item, and after the last payload item, are ignored.
    auto source = makeModel(1, false);
    const QByteArray payload = payloadOf(saveToBytes(*source));
    auto model = std::make_unique<ChartModel>();
    QVERIFY(loadBytes(*model, fileFromItems(payload + QByteArray("extra")) + QByteArray("trailing")).ok);
    QCOMPARE(model->data(0)->count, 50);

    // The size in front of the zlib stream is only a hint.
    QByteArray file = fileFromItems(payload);
    file[59] = 0;
    file[60] = 0;
    file[61] = 0;
    file[62] = 1;
    QVERIFY(loadBytes(*model, file).ok);

    // A negative count of data sets reads none.
    settingsT s = settingsFor(-3, false);
    auto negative = std::make_unique<ChartModel>();
    QVERIFY(loadBytes(*negative, fileFromItems(item(rawBytes(&s, 2048)))).ok);
    QCOMPARE(negative->usedDataSets(), 0);
    QVERIFY(!negative->row[0].enabled);
    // ... and saves no store either.
    QCOMPARE(payloadOf(saveToBytes(*negative)).size(), 4 + 2048);
}

void TestProjectFile::progressRuns()
{
    auto model = makeModel(4, true, kMaxSamples);
    QList<int> mainValues;
    SaveOptions options = fixedTime(5);
    options.progress = [&](int m, int d) {
        QCOMPARE(d, 255);
        mainValues << m;
    };
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(g_writeProject(*model, buffer, options).ok);
    QCOMPARE(mainValues.first(), 1);
    QCOMPARE(mainValues.at(1), 31);
    QCOMPARE(mainValues.last(), 255);
    QVERIFY(mainValues.size() > 3);  // the bar moves during compression
    for (int i = 1; i < mainValues.size(); ++i)
        QVERIFY(mainValues.at(i) >= mainValues.at(i - 1));

    mainValues.clear();
    buffer.close();
    buffer.open(QIODevice::ReadOnly);
    auto loaded = std::make_unique<ChartModel>();
    QVERIFY(g_readProject(*loaded, buffer, [&](int m, int) { mainValues << m; }).ok);
    QCOMPARE(mainValues.first(), 1);
    QCOMPARE(mainValues.last(), 255);
}

void TestProjectFile::writeErrorsAreReported_data()
{
    QTest::addColumn<qint64>("room");
    QTest::newRow("nothing fits") << qint64(0);
    QTest::newRow("inside the magic") << qint64(20);
    QTest::newRow("magic only") << qint64(55);
    QTest::newRow("inside the payload") << qint64(1000);
}

void TestProjectFile::writeErrorsAreReported()
{
    QFETCH(qint64, room);
    auto model = makeModel(3, true);
    FullDevice device(room);
    const FileResult r = g_writeProject(*model, device, fixedTime(1));
    QVERIFY(!r.ok);
    QCOMPARE(QString::fromLatin1(r.message), QStringLiteral("Error while writing file!"));
    QVERIFY(r.critical());
}

void TestProjectFile::saveSituations_data()
{
    // file: what is at the path afterwards, 'N' the new project, 'O' the old
    // file byte for byte, 'k' the same kind of non-file as before.
    // backup: 'O' the old file, 'P' the previous backup untouched, '-' none.
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("situation");
    QTest::addColumn<QString>("message");
    QTest::addColumn<char>("file");
    QTest::addColumn<char>("backup");
    const QString ok;
    const QString writeError = QStringLiteral("Error while writing file!");
    QTest::newRow("new file") << "a.qvj" << int(NewFile) << ok << 'N' << '-';
    QTest::newRow("over an older project") << "a.qvj" << int(OverOld) << ok << 'N' << 'O';
    QTest::newRow("name ending in .bak") << "x.bak" << int(OverOld) << ok << 'N' << 'O';
    QTest::newRow("writable file in a read-only folder") << "a.qvj" << int(ReadOnlyFolder) << writeError << 'O' << 'P';
    QTest::newRow("size limit hit by the project") << "a.qvj" << int(LimitHitsProject) << writeError << 'O' << 'O';
    QTest::newRow("size limit hit by the backup") << "a.qvj" << int(LimitHitsBackup) << writeError << 'O' << 'P';
    QTest::newRow("saved by another program") << "a.qvj" << int(InUse)
                                              << "The project is in use by another program!" << 'O' << 'P';
    QTest::newRow("FIFO") << "a.qvj" << int(Fifo) << writeError << 'k' << '-';
    QTest::newRow("socket") << "a.qvj" << int(Socket) << writeError << 'k' << '-';
    QTest::newRow("folder") << "a.qvj" << int(Folder) << writeError << 'k' << '-';
}

void TestProjectFile::saveSituations()
{
    QFETCH(QString, name);
    QFETCH(int, situation);
    QFETCH(QString, message);
    QFETCH(char, file);
    QFETCH(char, backup);

    QTemporaryDir dir;
    QVERIFY(QFile::setPermissions(dir.path(), QFile::Permissions(0x7755)));  // an ordinary user may enter
    const QString folder = dir.filePath(QStringLiteral("p"));
    QVERIFY(QDir().mkdir(folder));
    const QString path = folder + QLatin1Char('/') + name;
    const QString backupPath = g_backupPath(path);
    const QByteArray older("previous backup");

    auto model = makeModel(1, false);
    if (situation == LimitHitsProject) {  // values that do not compress to nothing
        model = makeModel(2, false, kMaxSamples);
        for (int i = 0; i < 2; ++i)
            for (int k = 0; k < kMaxSamples; ++k)
                model->data(i)->value[k] = double((k * 2654435761u + i) % 100003) / 7.0;
    }
    QByteArray old = saveToBytes(*makeModel(2, true), 1);
    if (situation == LimitHitsBackup)
        old = QByteArray(100 * 1024, 'o');  // larger than the limit
    int socketHandle = -1;
    if (situation == Fifo) {
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0666), 0);
    } else if (situation == Socket) {
        socketHandle = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, QFile::encodeName(path).constData(), sizeof address.sun_path - 1);
        QCOMPARE(::bind(socketHandle, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    } else if (situation == Folder) {
        QVERIFY(QDir().mkdir(path));
    } else if (situation != NewFile) {
        QVERIFY(qvtest::writeFile(path, old));
        QVERIFY(qvtest::writeFile(backupPath, older));
        QFile::setPermissions(path, QFile::Permissions(0x6666));
        QFile::setPermissions(backupPath, QFile::Permissions(0x6666));
    }
    const char kindBefore = kindOf(path);
    QStringList entriesAfter = QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    if (backup == 'O' && !entriesAfter.contains(QFileInfo(backupPath).fileName()))
        entriesAfter << QFileInfo(backupPath).fileName();
    if (file == 'N' && !entriesAfter.contains(name))
        entriesAfter << name;
    entriesAfter.sort();

    QLockFile otherSaver(path + QStringLiteral(".lock"));
    if (situation == InUse)
        QVERIFY(otherSaver.lock());
    if (situation == ReadOnlyFolder)
        QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x5555)));
    const int result = saveInChild(*model, path, situation);
    QFile::setPermissions(folder, QFile::Permissions(0x7755));
    otherSaver.unlock();
    if (socketHandle >= 0)
        ::close(socketHandle);
    if (result == 9)
        QSKIP("running as root and cannot change to an ordinary user: a read-only folder stops nobody");
    QVERIFY2(result < saveTexts.size(), qPrintable(QStringLiteral("child ended with %1").arg(result)));
    QCOMPARE(saveTexts.at(result), message);

    if (file == 'N')
        QV_COMPARE_BYTES(qvtest::readFile(path), saveToBytes(*model, 2));
    else if (file == 'O')
        QV_COMPARE_BYTES(qvtest::readFile(path), old);
    else
        QCOMPARE(kindOf(path), kindBefore);
    if (backup == 'O')
        QV_COMPARE_BYTES(qvtest::readFile(backupPath), old);
    else if (backup == 'P')
        QCOMPARE(qvtest::readFile(backupPath), older);
    // No temporary file, lock file or stray backup is left behind.
    QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot),
             entriesAfter);
}

void TestProjectFile::pathRules_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("needsDialog");
    QTest::addColumn<QString>("backup");
    QTest::addColumn<QString>("dir");
    QTest::newRow("ordinary") << "/data/a.qvj" << false << "/data/a.bak" << "/data";
    QTest::newRow("upper case extension") << "/data/run.QVJ" << true << "/data/run.bak" << "/data";
    QTest::newRow("only the name's extension") << "/p/x.qvj.d/out.qvj" << false << "/p/x.qvj.d/out.bak"
                                              << "/p/x.qvj.d";
    QTest::newRow("other extension") << "/data/a.qvjx" << false << "/data/a.bak" << "/data";
    QTest::newRow("no extension") << "/x.d/plain" << true << "/x.d/plain.bak" << "/x.d";
    QTest::newRow("hidden name") << "/data/.qvj" << false << "/data/.qvj.bak" << "/data";
    QTest::newRow("already a backup name") << "/x.qvj/b.BAK" << false << "/x.qvj/b.BAK.bak" << "/x.qvj";
    QTest::newRow("empty") << "" << true << "" << "KEEP";
    QTest::newRow("no directory") << "a.qvj" << false << "a.bak" << "KEEP";
}

void TestProjectFile::pathRules()
{
    QFETCH(QString, path);
    QFETCH(bool, needsDialog);
    QFETCH(QString, backup);
    QFETCH(QString, dir);
    QCOMPARE(g_needsSaveDialog(path), needsDialog);
    QCOMPARE(g_backupPath(path), backup);
    QCOMPARE(g_projectDirOf(path, QStringLiteral("KEEP")), dir);
}

QTEST_GUILESS_MAIN(TestProjectFile)
#include "tst_projectfile.moc"
