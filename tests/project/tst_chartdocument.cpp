// The chart widget as a document: its rows, opening and saving through the
// redirected dialogs, a failed save and what is kept after it, and the shared
// import routine with its failures.
#include "app/scripteddialogs.h"
#include "app/shellfixture.h"
#include "support/testsupport.h"

#include "import/importkind.h"
#include "ui/progressdialogclass.h"
#include "project/projectfile.h"
#include "project/qvchartclass.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
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

// A reader that records what it saw and either fails with `failure` or
// asks a question, warns and fills the model with three data sets.
struct FakeReader {
    static inline QString path;
    static inline bool answer = false;
    static inline qv::FileResult failure;
};

qv::FileResult fakeRead(const QString &path, qv::ChartModel &model, qv::ImportHost &host)
{
    FakeReader::path = path;
    host.progress(10, 255);
    if (!FakeReader::failure.ok)
        return FakeReader::failure;
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

// "title/detail" of the progress dialogs open under parent.
QStringList progressTexts(QWidget *parent)
{
    QStringList texts;
    for (ProgressDialogClass *d : parent->findChildren<ProgressDialogClass *>())
        texts << d->findChild<QLabel *>(QStringLiteral("labelProgress"))->text() + QLatin1Char('/') +
                     d->findChild<QLabel *>(QStringLiteral("labelProgressDetail"))->text();
    return texts;
}

// "<text>+" or "<text>-" (ticked or not) per row in use; "!" marks a row whose
// box and setup button disagree.
QStringList enabledRows(QWidget *panel)
{
    QStringList rows;
    for (int i = 0; i < 16; ++i) {
        auto *box = panel->findChild<QCheckBox *>(QStringLiteral("enableBox%1").arg(i));
        const bool button = panel->findChild<QToolButton *>(QStringLiteral("setupButton%1").arg(i))->isEnabled();
        if (box->isEnabled() || button)
            rows << box->text() + QLatin1String(box->isChecked() ? "+" : "-") +
                        QLatin1String(box->isEnabled() && button ? "" : "!");
    }
    return rows;
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
    void save_data();
    void save();
    void saveFailureKeepsTheName();
    void importRoutine_data();
    void importRoutine();

private:
    std::unique_ptr<ImportingChart> makeChart(const QString &projectDir = QString(),
                                              const QString &importDir = QString());
    QCheckBox *modeBox() const { return window->findChild<QCheckBox *>(QStringLiteral("modeBox")); }
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
    qvtest::flushDeletions();
    QVERIFY(progressTexts(window.get()).isEmpty());
    QVERIFY(!QApplication::overrideCursor());
    window.reset();
}

std::unique_ptr<ImportingChart> TestChartDocument::makeChart(const QString &projectDir, const QString &importDir)
{
    QString p = projectDir;
    QString i = importDir;
    auto chart = std::make_unique<ImportingChart>(window.get(), &p, &i, grid);
    connect(chart.get(), &QVChartClass::m_projectFileChanged, this,
            [this](QString *file, QString *dir) { changes << *file + QLatin1Char('|') + *dir; });
    return chart;
}

// An empty document: no rows in use, the mode box hidden; all rows leave
// the panel with the chart.
void TestChartDocument::construction()
{
    auto chart = makeChart(QStringLiteral("/projects"), QStringLiteral("/imports"));
    QVERIFY(!chart->parentWidget());
    QCOMPARE(chart->m_getProjectDir(), QStringLiteral("/projects"));
    QCOMPARE(chart->m_getImportDir(), QStringLiteral("/imports"));
    QVERIFY(chart->m_getProjectFile().isEmpty());
    QVERIFY(enabledRows(window.get()).isEmpty());
    QCOMPARE(modeBox()->text(), QStringLiteral("Show vaporix Mode"));
    QVERIFY(modeBox()->isHidden());
    QCOMPARE(grid->count(), 2 * 16 + 2);
    chart.reset();
    QCOMPARE(grid->count(), 0);
}

void TestChartDocument::openShowsRows_data()
{
    QTest::addColumn<int>("dataSets");
    QTest::addColumn<bool>("modes");
    QTest::newRow("no data sets") << 0 << false;
    QTest::newRow("three with modes") << 3 << true;
    QTest::newRow("sixteen") << 16 << false;
}

// The rows show the data sets (set 1 hidden) and switch them in the model.
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
    QVERIFY(dialogs.messages.isEmpty() && dialogs.fileDialogs.isEmpty());
    QStringList rows;
    for (int i = 0; i < dataSets; ++i)
        rows << QStringLiteral("Set %1").arg(i) + QLatin1String(i == 1 ? "-" : "+");
    QCOMPARE(enabledRows(window.get()), rows);
    QCOMPARE(modeBox()->isHidden(), !modes);
    QCOMPARE(modeBox()->isChecked(), modes);
    QCOMPARE(chart->m_getProjectFile(), path);
    QCOMPARE(changes, QStringList{path + QLatin1Char('|') + scratch.path()});
    if (dataSets < 3)
        return;
    window->findChild<QCheckBox *>(QStringLiteral("enableBox2"))->setChecked(false);
    window->findChild<QCheckBox *>(QStringLiteral("enableBox1"))->setChecked(true);
    QCOMPARE(chart->model().settings.lineFlags[2] & qv::kLineShown, 0u);
    QCOMPARE(chart->model().settings.lineFlags[1] & qv::kLineShown, qv::kLineShown);
    modeBox()->setChecked(false);
    QCOMPARE(chart->model().settings.flags & qv::kFlagShowModeTrack, 0u);
}

void TestChartDocument::save_data()
{
    QTest::addColumn<QString>("opened");        // project opened first ("" = new project)
    QTest::addColumn<QStringList>("answers");   // file dialog answers
    QTest::addColumn<bool>("saveAs");
    QTest::addColumn<int>("dialogsShown");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("written");       // "" = none
    QTest::addColumn<QStringList>("files");     // in the folder afterwards
    const auto list = [](std::initializer_list<const char *> names) {
        QStringList l;
        for (const char *n : names)
            l << QLatin1String(n);
        return l;
    };
    QTest::newRow("in place keeps a backup") << "a.qvj" << list({}) << false << 0 << true << "a.qvj"
                                             << list({"a.bak", "a.qvj"});
    QTest::newRow("new project asks") << "" << list({"new.qvj"}) << false << 1 << true << "new.qvj"
                                      << list({"new.qvj"});
    QTest::newRow("new project, cancelled") << "" << list({}) << false << 1 << true << "" << list({});
    QTest::newRow("upper-case extension asks") << "run.QVJ" << list({"run2.qvj"}) << false << 1 << true
                                               << "run2.qvj" << list({"run.QVJ", "run2.qvj"});
    QTest::newRow("save as") << "a.qvj" << list({"b.qvj"}) << true << 1 << true << "b.qvj"
                             << list({"a.qvj", "b.qvj"});
    QTest::newRow("save as, cancelled") << "a.qvj" << list({}) << true << 1 << false << "" << list({"a.qvj"});
    QTest::newRow("save as without .qvj asks again, saves as typed")
        << "" << list({"plain", "plain"}) << true << 2 << true << "plain" << list({"plain"});
}

// Save and Save As: the dialogs asked, the files written (with a progress
// dialog), and what was written loads back into the same model.
void TestChartDocument::save()
{
    QFETCH(QString, opened);
    QFETCH(QStringList, answers);
    QFETCH(bool, saveAs);
    QFETCH(int, dialogsShown);
    QFETCH(bool, result);
    QFETCH(QString, written);
    QFETCH(QStringList, files);
    QTemporaryDir dir;
    qvtest::ScriptedDialogs dialogs;
    auto chart = makeChart(QStringLiteral("/start"));
    QByteArray before;
    if (!opened.isEmpty()) {
        QString file = dir.filePath(opened);
        QVERIFY(qvtest::writeProject(file, 2));
        before = qvtest::readFile(file);
        QVERIFY(chart->m_openProject(&file));
        qvtest::flushDeletions();
        changes.clear();
    }
    for (const QString &answer : answers)
        dialogs.fileNames << dir.filePath(answer);
    const quint32 now = qv::g_currentSeconds();
    QCOMPARE(saveAs ? chart->s_saveProjectAs() : chart->s_saveProject(), result);
    QCOMPARE(progressTexts(window.get()),
             written.isEmpty() ? QStringList() : QStringList{QStringLiteral("Saving Project.../Chart Data...")});
    QCOMPARE(dialogs.fileDialogs.size(), dialogsShown);
    for (const qv::FileDialogRecord &d : dialogs.fileDialogs) {
        QCOMPARE(int(d.kind), int(FileDialogKind::Save));
        QCOMPARE(d.caption, QStringLiteral("Save Quorvanta Project..."));
        QCOMPARE(d.filter, QStringLiteral("Quorvanta Projekt (*.qvj)"));
    }
    if (dialogsShown > 0)
        QCOMPARE(dialogs.fileDialogs.first().directory, opened.isEmpty() ? QStringLiteral("/start") : dir.path());
    QVERIFY(dialogs.messages.isEmpty());
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), files);
    if (files.contains(QStringLiteral("a.bak")))
        QCOMPARE(qvtest::readFile(dir.filePath(QStringLiteral("a.bak"))), before);
    if (written.isEmpty()) {
        QVERIFY(changes.isEmpty());
        return;
    }
    const QString path = dir.filePath(written);
    QCOMPARE(changes, QStringList{path + QLatin1Char('|') + dir.path()});
    QCOMPARE(chart->m_getProjectFile(), path);
    QVERIFY(chart->model().settings.changedTime >= now);
    auto loaded = std::make_unique<qv::ChartModel>();
    QVERIFY(qv::g_loadProjectFile(*loaded, path, qv::ProgressFn()).ok);
    QVERIFY(std::memcmp(&loaded->settings, &chart->model().settings, sizeof(settingsT)) == 0);
    for (int i = 0; i < chart->model().settings.dataSetCount; ++i)
        QVERIFY(std::memcmp(loaded->data(i), chart->model().data(i), sizeof(_chartDataType)) == 0);
}

// A failed save says so, keeps the chosen name and tries it again next time
// without asking.
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
    QVERIFY(!chart->s_saveProject());
    QCOMPARE(dialogs.fileDialogs.size(), 1);
}

void TestChartDocument::importRoutine_data()
{
    QTest::addColumn<QString>("file");       // "" cancels the file dialog
    QTest::addColumn<QByteArray>("failure");  // "" reads the file
    QTest::addColumn<bool>("critical");
    QTest::newRow("file dialog cancelled") << "" << QByteArray() << false;
    QTest::newRow("imported") << "/data/cellar/run.tst" << QByteArray() << false;
    QTest::newRow("file cannot be read") << "/data/x.tst" << QByteArray("Error reading file!") << true;
    QTest::newRow("bad contents") << "/data/x.tst" << QByteArray("Error in CSV line 2 !") << false;
    QTest::newRow("sibling files") << "/data/x.tst" << QByteArray("Error while loading additional vaporix files!")
                                   << false;
}

// The shared routine asks for the file, runs the reader under a progress
// dialog with its questions and warnings, and shows the rows; a failure
// shows its box and keeps the chart and the import folder.
void TestChartDocument::importRoutine()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, failure);
    QFETCH(bool, critical);
    qvtest::ScriptedDialogs dialogs;
    QStringList progressAtMessage;
    dialogs.onMessage = [&](const qv::MessageRecord &) { progressAtMessage << progressTexts(window.get()); };
    auto chart = makeChart(QString(), QStringLiteral("/imports"));
    if (!file.isEmpty())
        dialogs.fileNames << file;
    dialogs.answers << QMessageBox::Yes;
    const qv::FileError kind = critical                           ? qv::FileError::CannotOpen
                               : failure.contains("additional") ? qv::FileError::SiblingFiles
                                                                : qv::FileError::BadContents;
    FakeReader::failure = failure.isEmpty() ? qv::FileResult() : qv::FileResult::failure(failure.constData(), kind);
    const bool imported = !file.isEmpty() && failure.isEmpty();
    QCOMPARE(chart->m_runImport(kFakeKind), imported);
    FakeReader::failure = qv::FileResult();
    QCOMPARE(dialogs.fileDialogs.size(), 1);
    QCOMPARE(dialogs.fileDialogs.first().caption, QStringLiteral("Open Test Sampling"));
    QCOMPARE(dialogs.fileDialogs.first().filter, QStringLiteral("Test Sampling (*.tst)"));
    QCOMPARE(dialogs.fileDialogs.first().directory, QStringLiteral("/imports"));
    QVERIFY(chart->m_getProjectFile().isEmpty());  // an import is not bound to a file
    QVERIFY(changes.isEmpty());
    if (!imported) {
        QStringList expected;
        if (!failure.isEmpty())
            expected << QStringLiteral("Quorvanta Error|") + QString::fromLatin1(failure);
        QStringList shown;
        for (const qv::MessageRecord &m : dialogs.messages)
            shown << m.title + QLatin1Char('|') + m.text;
        QCOMPARE(shown, expected);
        if (!failure.isEmpty())
            QCOMPARE(int(dialogs.messages.first().kind), int(critical ? MessageKind::Critical : MessageKind::Warning));
        QCOMPARE(chart->m_getImportDir(), QStringLiteral("/imports"));
        QVERIFY(enabledRows(window.get()).isEmpty());
        return;
    }
    QCOMPARE(FakeReader::path, file);
    QVERIFY(FakeReader::answer);
    QCOMPARE(dialogs.messages.size(), 2);
    QCOMPARE(int(dialogs.messages.at(0).kind), int(MessageKind::Question));
    QCOMPARE(dialogs.messages.at(0).text, QStringLiteral("Load the state file too?"));
    QCOMPARE(dialogs.messages.at(0).buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(int(dialogs.messages.at(1).kind), int(MessageKind::Warning));
    QCOMPARE(dialogs.messages.at(1).title, QStringLiteral("Quorvanta Error"));
    QCOMPARE(progressAtMessage.first(), QStringLiteral("Importing Sampling Data.../Test Data"));
    QCOMPARE(chart->m_getImportDir(), QStringLiteral("/data/cellar"));
    QCOMPARE(enabledRows(window.get()), (QStringList{QStringLiteral("Set 0+"), QStringLiteral("Set 1-"),
                                               QStringLiteral("Set 2+")}));
    QVERIFY(!modeBox()->isHidden() && modeBox()->isChecked());
}

QTEST_MAIN(TestChartDocument)
#include "tst_chartdocument.moc"
