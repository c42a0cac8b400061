// The chart widget as a document: its rows, saving and opening through the
// redirected dialogs, every failure with its box and what is kept after it,
// and the shared import routine.
#include "app/scripteddialogs.h"
#include "app/shellfixture.h"
#include "support/testsupport.h"

#include "import/importkind.h"
#include "import/progressdialogclass.h"
#include "project/fixedstring.h"
#include "project/projectfile.h"
#include "project/qvchartclass.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>
#include <QtTest>

#include <cstring>

using qv::FileDialogKind;
using qv::MessageKind;

namespace {

// Opens the shared import routine to the tests.
class ImportingChart : public QVChartClass
{
public:
    using QVChartClass::QVChartClass;
    using QVChartClass::m_runImport;
};

// What the fake readers below saw and do.
struct FakeReader {
    static inline QString path;
    static inline bool answer = false;
    static inline qv::FileResult result;
};

qv::FileResult fakeRead(const QString &path, qv::ChartModel &model, qv::ImportHost &host)
{
    FakeReader::path = path;
    host.progress(10, 255);
    if (!FakeReader::result.ok)
        return FakeReader::result;
    FakeReader::answer = host.askYesNo(QStringLiteral("Quorvanta"), QStringLiteral("Load the state file too?"));
    host.warn(QStringLiteral("Line 3 was skipped."));
    auto source = qvtest::makeModel(3, true);
    std::memcpy(&model.settings, &source->settings, sizeof(settingsT));
    model.activateRows();
    model.showModeBox();
    host.progress(255, 255);
    return qv::FileResult();
}

const qv::ImportKind kFakeKind{"Open Test Sampling", "Test Sampling (*.tst)", "Test Data", &fakeRead};

QList<ProgressDialogClass *> progressDialogs(QWidget *parent)
{
    return parent->findChildren<ProgressDialogClass *>();
}

void flushDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace

class TestChartDocument : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void construction();
    void openShowsRows_data();
    void openShowsRows();
    void rowsDriveTheModel();
    void openAsksForAFile();
    void loadFailures_data();
    void loadFailures();
    void save_data();
    void save();
    void saveShowsProgress();
    void saveAsWithoutExtensionAsksTwice();
    void saveFailureKeepsTheName();
    void importRoutine();
    void importFailures_data();
    void importFailures();
    void importDialogs_data();
    void importDialogs();
    void errorExits();

private:
    std::unique_ptr<QVChartClass> makeChart(const QString &projectDir = QString(),
                                            const QString &importDir = QString());
    QTemporaryDir scratch;
    std::unique_ptr<QWidget> window;
    QGridLayout *grid = nullptr;
    QStringList changes;  // "file|dir" per m_projectFileChanged
};

void TestChartDocument::initTestCase()
{
    qvtest::prepareShell(scratch);
}

void TestChartDocument::init()
{
    window = std::make_unique<QWidget>();
    grid = new QGridLayout(window.get());
    changes.clear();
}

void TestChartDocument::cleanup()
{
    flushDeletions();
    QVERIFY(!QApplication::overrideCursor());
    window.reset();
}

std::unique_ptr<QVChartClass> TestChartDocument::makeChart(const QString &projectDir, const QString &importDir)
{
    QString p = projectDir;
    QString i = importDir;
    auto chart = std::make_unique<ImportingChart>(window.get(), &p, &i, grid);
    connect(chart.get(), &QVChartClass::m_projectFileChanged, this,
            [this](QString *file, QString *dir) { changes << *file + QLatin1Char('|') + *dir; });
    return chart;
}

void TestChartDocument::construction()
{
    auto chart = makeChart(QStringLiteral("/projects"), QStringLiteral("/imports"));
    QCOMPARE(chart->projectHeader13, QByteArray("Quorvanta Project - (C)2016 Merovin GmbH V1.3.000RS"));
    QCOMPARE(chart->projectHeader14, QByteArray("Quorvanta Project - (C)2016 Merovin GmbH V1.4.000RS"));
    QCOMPARE(chart->sampleFileHeader.size(), 64);
    QVERIFY(chart->sampleFileHeader.startsWith("Solvanor SampleFile (C)2014 Merovin GmbH V40 "));
    QCOMPARE(chart->sampleFileHeader.right(20), QByteArray(20, ' '));
    QVERIFY(!chart->parentWidget());
    QCOMPARE(chart->m_getProjectDir(), QStringLiteral("/projects"));
    QCOMPARE(*chart->m_getImportDir(), QStringLiteral("/imports"));
    QVERIFY(chart->m_getProjectFile().isEmpty());
    QCOMPARE(chart->settings.dataSetCount, 0);
    QCOMPARE(&chart->settings, &chart->model().settings);

    for (int i = 0; i < 16; ++i) {
        QVERIFY(!chart->enableBox[i]->isEnabled());
        QVERIFY(chart->enableBox[i]->text().isEmpty());
        QVERIFY(!chart->setupButton[i]->isEnabled());
        QCOMPARE(chart->setupButton[i]->iconSize(), QSize(16, 16));
        QVERIFY(!chart->setupButton[i]->icon().isNull());
        QCOMPARE(grid->itemAtPosition(i, 0)->widget(), chart->enableBox[i]);
        QCOMPARE(grid->itemAtPosition(i, 1)->widget(), chart->setupButton[i]);
    }
    QCOMPARE(grid->itemAtPosition(16, 0)->widget(), chart->modeBox);
    QCOMPARE(chart->modeBox->text(), QStringLiteral("Show vaporix Mode"));
    QVERIFY(chart->modeBox->isEnabled());
    QVERIFY(chart->modeBox->isHidden());
    int row, column, rowSpan, columnSpan;
    grid->getItemPosition(grid->indexOf(chart->infoLabel), &row, &column, &rowSpan, &columnSpan);
    QCOMPARE(QList<int>({row, column, rowSpan, columnSpan}), QList<int>({17, 0, 1, 2}));
    QCOMPARE(chart->infoLabel->minimumHeight(), 48);
    QCOMPARE(chart->infoLabel->alignment(), Qt::AlignCenter);

    // The rows leave the panel with the chart.
    chart.reset();
    QCOMPARE(grid->count(), 0);
}

void TestChartDocument::openShowsRows_data()
{
    QTest::addColumn<int>("dataSets");
    QTest::addColumn<bool>("modes");
    QTest::newRow("no data sets") << 0 << false;
    QTest::newRow("three") << 3 << false;
    QTest::newRow("sixteen with modes") << 16 << true;
}

void TestChartDocument::openShowsRows()
{
    QFETCH(int, dataSets);
    QFETCH(bool, modes);
    const QString path = scratch.filePath(QStringLiteral("rows.qvj"));
    QVERIFY(qvtest::writeProject(path, dataSets, modes));
    qvtest::ScriptedDialogs dialogs;
    auto chart = makeChart(QStringLiteral("/elsewhere"));
    QString file = path;
    QVERIFY(chart->m_openProject(&file));
    QVERIFY(dialogs.messages.isEmpty());
    QVERIFY(dialogs.fileDialogs.isEmpty());
    for (int i = 0; i < 16; ++i) {
        const bool used = i < dataSets;
        QCOMPARE(chart->enableBox[i]->isEnabled(), used);
        QCOMPARE(chart->setupButton[i]->isEnabled(), used);
        QCOMPARE(chart->enableBox[i]->text(), used ? QStringLiteral("Set %1").arg(i) : QString());
        QCOMPARE(chart->enableBox[i]->isChecked(), used && i != 1);
    }
    QCOMPARE(chart->modeBox->isHidden(), !modes);
    QCOMPARE(chart->modeBox->isChecked(), modes);
    QCOMPARE(chart->m_getProjectFile(), path);
    QCOMPARE(changes, QStringList{path + QLatin1Char('|') + scratch.path()});
    flushDeletions();
    QVERIFY(progressDialogs(window.get()).isEmpty());
}

// The rows are connected: a box switches its data set in the model.
void TestChartDocument::rowsDriveTheModel()
{
    const QString path = scratch.filePath(QStringLiteral("drive.qvj"));
    QVERIFY(qvtest::writeProject(path, 3, true));
    auto chart = makeChart();
    QString file = path;
    QVERIFY(chart->m_openProject(&file));
    QCOMPARE(chart->settings.lineFlags[2] & qv::kLineShown, qv::kLineShown);
    chart->enableBox[2]->setChecked(false);
    QCOMPARE(chart->settings.lineFlags[2] & qv::kLineShown, 0u);
    chart->enableBox[1]->setChecked(true);
    QCOMPARE(chart->settings.lineFlags[1] & qv::kLineShown, qv::kLineShown);
    QCOMPARE(chart->settings.flags & qv::kFlagShowModeTrack, qv::kFlagShowModeTrack);
    chart->modeBox->setChecked(false);
    QCOMPARE(chart->settings.flags & qv::kFlagShowModeTrack, 0u);
}

void TestChartDocument::openAsksForAFile()
{
    qvtest::ScriptedDialogs dialogs;
    auto chart = makeChart(QStringLiteral("/last/projects"));
    QVERIFY(!chart->m_openProject(nullptr));
    QString empty;
    QVERIFY(!chart->m_openProject(&empty));
    QCOMPARE(dialogs.fileDialogs.size(), 2);
    for (const qv::FileDialogRecord &d : dialogs.fileDialogs) {
        QCOMPARE(int(d.kind), int(FileDialogKind::Open));
        QCOMPARE(d.caption, QStringLiteral("Open Quorvanta Project"));
        QCOMPARE(d.filter, QStringLiteral("Quorvanta Project (*.qvj)"));
        QCOMPARE(d.directory, QStringLiteral("/last/projects"));
    }
    QVERIFY(dialogs.messages.isEmpty());
    QVERIFY(changes.isEmpty());

    const QString path = scratch.filePath(QStringLiteral("chosen.qvj"));
    QVERIFY(qvtest::writeProject(path, 2));
    dialogs.fileNames << path;
    QVERIFY(chart->m_openProject(nullptr));
    QCOMPARE(chart->enableBox[0]->text(), QStringLiteral("Set 0"));
    QCOMPARE(chart->m_getProjectDir(), scratch.path());
}

void TestChartDocument::loadFailures_data()
{
    QTest::addColumn<QByteArray>("bytes");  // empty: no file at all
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("critical");
    QTest::addColumn<bool>("progressShown");
    QTest::newRow("missing file") << QByteArray() << "Error reading file!" << true << false;
    QTest::newRow("not a project") << QByteArray("Quorvanta Project, honestly") << "File is no Quorvanta project!"
                                   << false << false;
    QTest::newRow("damaged payload")
        << (qvtest::item("Quorvanta Project - (C)2016 Merovin GmbH V1.4.000RS") + qvtest::item("not zlib at all"))
        << "Error in Quorvanta project!" << false << true;
}

void TestChartDocument::loadFailures()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    QFETCH(bool, critical);
    QFETCH(bool, progressShown);
    const QString path = scratch.filePath(QStringLiteral("broken.qvj"));
    QFile::remove(path);
    if (!bytes.isEmpty())
        QVERIFY(qvtest::writeFile(path, bytes));

    qvtest::ScriptedDialogs dialogs;
    int dialogsAtMessage = -1;
    const QCursor *cursorAtMessage = nullptr;
    dialogs.onMessage = [&](const qv::MessageRecord &) {
        dialogsAtMessage = progressDialogs(window.get()).size();
        cursorAtMessage = QApplication::overrideCursor();
    };
    auto chart = makeChart();
    QString file = path;
    QVERIFY(!chart->m_openProject(&file));

    QCOMPARE(dialogs.messages.size(), 1);
    const qv::MessageRecord &m = dialogs.messages.first();
    QCOMPARE(m.title, QStringLiteral("Quorvanta Error"));
    QCOMPARE(m.text, message);
    QCOMPARE(int(m.kind), int(critical ? MessageKind::Critical : MessageKind::Warning));
    QCOMPARE(m.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    // The progress dialog and the wait cursor appear only once the file is a project.
    QCOMPARE(dialogsAtMessage, progressShown ? 1 : 0);
    QCOMPARE(cursorAtMessage != nullptr, progressShown);
    QVERIFY(!QApplication::overrideCursor());
    flushDeletions();
    QVERIFY(progressDialogs(window.get()).isEmpty());
    QVERIFY(changes.isEmpty());
    QVERIFY(chart->m_getProjectFile().isEmpty());
    QVERIFY(!chart->enableBox[0]->isEnabled());
}

void TestChartDocument::save_data()
{
    QTest::addColumn<QString>("opened");     // project opened first ("" = new project)
    QTest::addColumn<QString>("answer");     // file dialog answer
    QTest::addColumn<bool>("saveAs");
    QTest::addColumn<int>("dialogsShown");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("written");    // file expected afterwards ("" = none)
    QTest::newRow("in place") << "a.qvj" << "" << false << 0 << true << "a.qvj";
    QTest::newRow("new project asks") << "" << "new.qvj" << false << 1 << true << "new.qvj";
    QTest::newRow("new project, cancelled") << "" << "" << false << 1 << true << "";
    QTest::newRow("upper-case extension asks") << "run.QVJ" << "run2.qvj" << false << 1 << true << "run2.qvj";
    QTest::newRow("save as") << "a.qvj" << "b.qvj" << true << 1 << true << "b.qvj";
    QTest::newRow("save as, cancelled") << "a.qvj" << "" << true << 1 << false << "";
}

void TestChartDocument::save()
{
    QFETCH(QString, opened);
    QFETCH(QString, answer);
    QFETCH(bool, saveAs);
    QFETCH(int, dialogsShown);
    QFETCH(bool, result);
    QFETCH(QString, written);
    QTemporaryDir dir;
    qvtest::ScriptedDialogs dialogs;
    auto chart = makeChart(QStringLiteral("/start"));
    const QString openedPath = dir.filePath(opened);
    if (!opened.isEmpty()) {
        QVERIFY(qvtest::writeProject(openedPath, 2));
        QString file = openedPath;
        QVERIFY(chart->m_openProject(&file));
        QFile::remove(openedPath);
        changes.clear();
    }
    if (!answer.isEmpty())
        dialogs.fileNames << dir.filePath(answer);

    QCOMPARE(saveAs ? chart->s_saveProjectAs() : chart->s_saveProject(), result);
    QCOMPARE(dialogs.fileDialogs.size(), dialogsShown);
    for (const qv::FileDialogRecord &d : dialogs.fileDialogs) {
        QCOMPARE(int(d.kind), int(FileDialogKind::Save));
        QCOMPARE(d.caption, QStringLiteral("Save Quorvanta Project..."));
        QCOMPARE(d.filter, QStringLiteral("Quorvanta Projekt (*.qvj)"));
        QCOMPARE(d.directory, opened.isEmpty() ? QStringLiteral("/start") : dir.path());
    }
    QVERIFY(dialogs.messages.isEmpty());
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), written.isEmpty() ? QStringList() : QStringList{written});
    if (written.isEmpty()) {
        QVERIFY(changes.isEmpty());
        return;
    }
    const QString path = dir.filePath(written);
    QCOMPARE(changes, QStringList{path + QLatin1Char('|') + dir.path()});
    QCOMPARE(chart->m_getProjectFile(), path);
    // What was written loads back into the same model.
    auto loaded = std::make_unique<qv::ChartModel>();
    QVERIFY(qv::g_loadProjectFile(*loaded, path, qv::ProgressFn()).ok);
    QCOMPARE(loaded->settings.dataSetCount, chart->settings.dataSetCount);
    QVERIFY(std::memcmp(&loaded->settings, &chart->settings, sizeof(settingsT)) == 0);
    for (int i = 0; i < chart->settings.dataSetCount; ++i)
        QVERIFY(std::memcmp(loaded->data(i), chart->model().data(i), sizeof(_chartDataType)) == 0);
}

void TestChartDocument::saveShowsProgress()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("p.qvj"));
    QVERIFY(qvtest::writeProject(path, 1));
    const QByteArray before = qvtest::readFile(path);
    auto chart = makeChart();
    QString file = path;
    QVERIFY(chart->m_openProject(&file));
    flushDeletions();
    const quint32 now = qv::g_currentSeconds();
    QVERIFY(chart->s_saveProject());
    const QList<ProgressDialogClass *> shown = progressDialogs(window.get());
    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown.first()->findChild<QLabel *>(QStringLiteral("labelProgress"))->text(),
             QStringLiteral("Saving Project..."));
    QCOMPARE(shown.first()->findChild<QLabel *>(QStringLiteral("labelProgressDetail"))->text(),
             QStringLiteral("Chart Data..."));
    QCOMPARE(shown.first()->findChild<QProgressBar *>(QStringLiteral("progressBar"))->value(), 255);
    flushDeletions();
    QVERIFY(progressDialogs(window.get()).isEmpty());
    // The old file became the backup; the new one carries the time of saving.
    QCOMPARE(qvtest::readFile(dir.filePath(QStringLiteral("p.bak"))), before);
    QVERIFY(chart->settings.changedTime >= now);
}

// A name without ".qvj" chosen in Save As makes Save ask again.
void TestChartDocument::saveAsWithoutExtensionAsksTwice()
{
    QTemporaryDir dir;
    qvtest::ScriptedDialogs dialogs;
    auto chart = makeChart();
    dialogs.fileNames << dir.filePath(QStringLiteral("plain")) << dir.filePath(QStringLiteral("plain"));
    QVERIFY(chart->s_saveProjectAs());
    QCOMPARE(dialogs.fileDialogs.size(), 2);
    QVERIFY(QFile::exists(dir.filePath(QStringLiteral("plain"))));  // saved as typed, no extension added
    QCOMPARE(changes.size(), 1);

    dialogs.fileNames << dir.filePath(QStringLiteral("other"));  // the second prompt is cancelled
    QVERIFY(chart->s_saveProjectAs());
    QCOMPARE(dialogs.fileDialogs.size(), 4);
    QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("other"))));
    QCOMPARE(chart->m_getProjectFile(), dir.filePath(QStringLiteral("other")));
}

void TestChartDocument::saveFailureKeepsTheName()
{
    QTemporaryDir dir;
    qvtest::ScriptedDialogs dialogs;
    auto chart = makeChart();
    const QString path = dir.filePath(QStringLiteral("missing/folder/x.qvj"));
    dialogs.fileNames << path;
    QVERIFY(!chart->s_saveProject());
    QCOMPARE(dialogs.messages.size(), 1);
    QCOMPARE(int(dialogs.messages.first().kind), int(MessageKind::Critical));
    QCOMPARE(dialogs.messages.first().title, QStringLiteral("Quorvanta Error"));
    QCOMPARE(dialogs.messages.first().text, QStringLiteral("Error while writing file!"));
    QVERIFY(changes.isEmpty());
    QCOMPARE(chart->m_getProjectFile(), path);
    // The next save tries the same name without asking.
    QVERIFY(!chart->s_saveProject());
    QCOMPARE(dialogs.fileDialogs.size(), 1);
}

void TestChartDocument::importRoutine()
{
    qvtest::ScriptedDialogs dialogs;
    QString title;
    dialogs.onMessage = [&](const qv::MessageRecord &) {
        const QList<ProgressDialogClass *> shown = progressDialogs(window.get());
        title = shown.isEmpty() ? QString()
                                : shown.first()->findChild<QLabel *>(QStringLiteral("labelProgress"))->text() +
                                      QLatin1Char('/') +
                                      shown.first()->findChild<QLabel *>(QStringLiteral("labelProgressDetail"))->text();
    };
    auto chart = makeChart(QString(), QStringLiteral("/imports"));
    auto *importing = static_cast<ImportingChart *>(chart.get());

    FakeReader::result = qv::FileResult();
    QVERIFY(!importing->m_runImport(kFakeKind));  // file dialog cancelled
    QVERIFY(dialogs.messages.isEmpty());
    QCOMPARE(dialogs.fileDialogs.size(), 1);
    QCOMPARE(dialogs.fileDialogs.first().caption, QStringLiteral("Open Test Sampling"));
    QCOMPARE(dialogs.fileDialogs.first().filter, QStringLiteral("Test Sampling (*.tst)"));
    QCOMPARE(dialogs.fileDialogs.first().directory, QStringLiteral("/imports"));

    dialogs.fileNames << QStringLiteral("/data/cellar/run.tst");
    dialogs.answers << QMessageBox::Yes;
    QVERIFY(importing->m_runImport(kFakeKind));
    QCOMPARE(FakeReader::path, QStringLiteral("/data/cellar/run.tst"));
    QVERIFY(FakeReader::answer);
    QCOMPARE(dialogs.messages.size(), 2);
    QCOMPARE(int(dialogs.messages.at(0).kind), int(MessageKind::Question));
    QCOMPARE(dialogs.messages.at(0).text, QStringLiteral("Load the state file too?"));
    QCOMPARE(dialogs.messages.at(0).buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(int(dialogs.messages.at(1).kind), int(MessageKind::Warning));
    QCOMPARE(dialogs.messages.at(1).title, QStringLiteral("Quorvanta Error"));
    QCOMPARE(title, QStringLiteral("Importing Sampling Data.../Test Data"));
    QCOMPARE(*chart->m_getImportDir(), QStringLiteral("/data/cellar"));
    for (int i = 0; i < 16; ++i)
        QCOMPARE(chart->enableBox[i]->isEnabled(), i < 3);
    QVERIFY(chart->enableBox[0]->isChecked() && !chart->enableBox[1]->isChecked());
    QVERIFY(!chart->modeBox->isHidden() && chart->modeBox->isChecked());
    QVERIFY(chart->m_getProjectFile().isEmpty());  // an import is not bound to a file
    QVERIFY(changes.isEmpty());
}

void TestChartDocument::importFailures_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<bool>("critical");
    QTest::newRow("file cannot be read") << QByteArray("Error reading file!") << true;
    QTest::newRow("bad contents") << QByteArray("Error in CSV line 2 !") << false;
    QTest::newRow("sibling files") << QByteArray("Error while loading additional vaporix files!") << false;
}

void TestChartDocument::importFailures()
{
    QFETCH(QByteArray, message);
    QFETCH(bool, critical);
    qvtest::ScriptedDialogs dialogs;
    auto chart = makeChart(QString(), QStringLiteral("/imports"));
    dialogs.fileNames << QStringLiteral("/data/x.tst");
    FakeReader::result = qv::FileResult::failure(message.constData(), critical);
    QVERIFY(!static_cast<ImportingChart *>(chart.get())->m_runImport(kFakeKind));
    FakeReader::result = qv::FileResult();
    QCOMPARE(dialogs.messages.size(), 1);
    QCOMPARE(dialogs.messages.first().title, QStringLiteral("Quorvanta Error"));
    QCOMPARE(dialogs.messages.first().text, QString::fromLatin1(message));
    QCOMPARE(int(dialogs.messages.first().kind), int(critical ? MessageKind::Critical : MessageKind::Warning));
    QCOMPARE(*chart->m_getImportDir(), QStringLiteral("/imports"));  // kept after a failure
    QVERIFY(!chart->enableBox[0]->isEnabled());
    QVERIFY(!QApplication::overrideCursor());
}

void TestChartDocument::importDialogs_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("filter");
    QTest::newRow("controller CSV") << 0 << "Open Ventimar Sampling File" << "Ventimar Sampling (*.csv *.CSV)";
    QTest::newRow("binary log") << 1 << "Open Ventimar Sampling File" << "Ventimar Sampling (*.log *.LOG)";
    QTest::newRow("vaporix-VIS") << 2 << "Open vaporix-Vis Sampling File" << "vaporix-Vis Sampling (*.csv *.CSV)";
}

// The three imports ask for their file; cancelling returns false silently.
void TestChartDocument::importDialogs()
{
    QFETCH(int, kind);
    QFETCH(QString, caption);
    QFETCH(QString, filter);
    qvtest::ScriptedDialogs dialogs;
    auto chart = makeChart(QString(), QStringLiteral("/imports"));
    const bool result = kind == 0 ? chart->m_importCSV() : kind == 1 ? chart->m_importDAT() : chart->m_importVap();
    QVERIFY(!result);
    QCOMPARE(dialogs.fileDialogs.size(), 1);
    QCOMPARE(int(dialogs.fileDialogs.first().kind), int(FileDialogKind::Open));
    QCOMPARE(dialogs.fileDialogs.first().caption, caption);
    QCOMPARE(dialogs.fileDialogs.first().filter, filter);
    QCOMPARE(dialogs.fileDialogs.first().directory, QStringLiteral("/imports"));
    QVERIFY(dialogs.messages.isEmpty());

    // A file that does not exist fails with a message, whatever the reader.
    dialogs.fileNames << scratch.filePath(QStringLiteral("no-such-sampling.csv"));
    QVERIFY(!(kind == 0 ? chart->m_importCSV() : kind == 1 ? chart->m_importDAT() : chart->m_importVap()));
    QCOMPARE(dialogs.messages.size(), 1);
    QCOMPARE(dialogs.messages.first().title, QStringLiteral("Quorvanta Error"));
}

void TestChartDocument::errorExits()
{
    qvtest::ScriptedDialogs dialogs;
    auto chart = makeChart();
    QFile files[3];
    for (int i = 0; i < 3; ++i) {
        files[i].setFileName(scratch.filePath(QStringLiteral("exit%1.txt").arg(i)));
        QVERIFY(files[i].open(QIODevice::WriteOnly));
    }
    QPointer<QDialog> progress = new ProgressDialogClass(window.get(), QStringLiteral("T"), QStringLiteral("D"));
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QCOMPARE(chart->m_returnError(&files[0], progress, QStringLiteral("Something broke.")), 0);
    QVERIFY(!files[0].isOpen());
    QVERIFY(files[1].isOpen());
    QCOMPARE(dialogs.messages.last().text, QStringLiteral("Something broke."));
    QCOMPARE(int(dialogs.messages.last().kind), int(MessageKind::Warning));
    flushDeletions();
    QVERIFY(!progress);
    QApplication::restoreOverrideCursor();  // the chart restores only what it set

    progress = new ProgressDialogClass(window.get(), QStringLiteral("T"), QStringLiteral("D"));
    QCOMPARE(chart->m_returnExtError(&files[1], nullptr, &files[2], progress), 0);
    QVERIFY(!files[1].isOpen() && !files[2].isOpen());
    QCOMPARE(dialogs.messages.last().title, QStringLiteral("Quorvanta Error"));
    QCOMPARE(dialogs.messages.last().text, QStringLiteral("Error while loading additional vaporix files!"));
    flushDeletions();
    QVERIFY(!progress);
    QCOMPARE(chart->m_returnError(nullptr, nullptr, QStringLiteral("x")), 0);
    QCOMPARE(dialogs.messages.size(), 3);
}

QTEST_MAIN(TestChartDocument)
#include "tst_chartdocument.moc"
