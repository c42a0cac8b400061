// The chart widget as a document: Save and Save As through the redirected
// dialogs, a failed save and what is kept after it, and the shared import
// routine with its questions, warnings and failures.
#include "support/scripteddialogs.h"
#include "support/testsupport.h"
#include "support/widgetsupport.h"

#include "core/import/inputkind.h"
#include "core/project/projectfile.h"
#include "document/qvchartclass.h"
#include "gui/ui/progressdialogclass.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QtTest>

#include <cstring>

namespace {

// Opens the shared import routine to the tests.
struct ImportingChart : QVChartClass {
    using QVChartClass::m_runImport;
    using QVChartClass::QVChartClass;
};

// A reader that fails with `failure`, or asks a question, warns and fills
// the model with three data sets (set 1 hidden) and mode data.
qv::FileResult failure;
qv::FileResult fakeRead(const QString &path, qv::ChartModel &model, qv::ImportHost &host)
{
    host.progress(10, 255);
    if (!failure.ok)
        return failure;
    if (host.askYesNo(QStringLiteral("Quorvanta"), QStringLiteral("Load the state file too?")))
        host.warn(QStringLiteral("Line 3 of %1 was skipped.").arg(path));
    std::memcpy(&model.settings, &qvtest::makeModel(3, true)->settings, sizeof(settingsT));
    model.activateRows();
    model.showModeBox();
    return qv::FileResult();
}

const qv::SamplingFormat kFakeKind{"Open Test Sampling", "Test Sampling (*.tst)", "Test Data", &fakeRead};

// "title/detail" of the progress dialogs open under parent.
QStringList progressTexts(QWidget *parent)
{
    QStringList texts;
    for (ProgressDialogClass *d : parent->findChildren<ProgressDialogClass *>())
        texts << d->findChild<QLabel *>(QStringLiteral("labelProgress"))->text() + QLatin1Char('/') +
                     d->findChild<QLabel *>(QStringLiteral("labelProgressDetail"))->text();
    return texts;
}

// The message boxes shown, as "kind title|text".
QString messages(const qvtest::ScriptedDialogs &dialogs)
{
    QStringList shown;
    for (const qv::MessageRecord &m : dialogs.messages)
        shown << QStringLiteral("%1 %2|%3").arg(int(m.kind)).arg(m.title, m.text);
    return shown.join(QLatin1String(", "));
}

}  // namespace

class TestChartDocument : public QObject
{
    Q_OBJECT

    QTemporaryDir scratch;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<ImportingChart> chart;
    QStringList changes;  // "file|dir" per m_projectFileChanged

private slots:
    void initTestCase() { qvtest::prepareShell(scratch); }

    void init()
    {
        window = std::make_unique<QWidget>();
        QString projectDir = QStringLiteral("/start"), importDir = QStringLiteral("/imports");
        chart = std::make_unique<ImportingChart>(window.get(), &projectDir, &importDir, new QGridLayout(window.get()));
        connect(chart.get(), &QVChartClass::m_projectFileChanged, this,
                [this](QString *file, QString *dir) { changes << *file + QLatin1Char('|') + *dir; });
        changes.clear();
    }

    // No progress dialog or busy cursor outlives an action.
    void cleanup()
    {
        qvtest::flushDeletions();
        QVERIFY(progressTexts(window.get()).isEmpty());
        QVERIFY(!QApplication::overrideCursor());
        chart.reset();
        window.reset();
    }

    void save_data()
    {
        // clang-format off
        QTest::addColumn<QString>("opened");   // project opened first ("" = a new project)
        QTest::addColumn<QStringList>("answers");  // file dialog answers
        QTest::addColumn<bool>("saveAs");
        // result, dialogs shown and the folder of the first, the project file,
        // the file|folder changes told (# = the test folder), messages ("3" a
        // critical box), the projects there (backups are the save-situation
        // table's concern), and the dialogs shown after a second plain Save.
        QTest::addColumn<QString>("expected");
        QTest::newRow("new project, cancelled") << "" << QStringList() << false << "1 asked 1 in /start |  |  |  |  | again 2";
        QTest::newRow("upper-case extension saves in place") << "run.QVJ" << QStringList() << false << "1 asked 0 | #/run.QVJ | #/run.QVJ|# |  | run.QVJ | again 0";
        QTest::newRow("save as") << "a.qvj" << QStringList{QStringLiteral("b.qvj")} << true << "1 asked 1 in # | #/b.qvj | #/b.qvj|# |  | a.qvj b.qvj | again 1";
        QTest::newRow("save as, cancelled") << "a.qvj" << QStringList() << true << "0 asked 1 in # | #/a.qvj |  |  | a.qvj | again 1";
        QTest::newRow("save as without .qvj adds it") << "" << QStringList{QStringLiteral("plain")} << true << "1 asked 1 in /start | #/plain.qvj | #/plain.qvj|# |  | plain.qvj | again 1";
        QTest::newRow("first save without .qvj adds it") << "" << QStringList{QStringLiteral("plain")} << false << "1 asked 1 in /start | #/plain.qvj | #/plain.qvj|# |  | plain.qvj | again 1";
        QTest::newRow("save as keeps an upper-case .QVJ") << "a.qvj" << QStringList{QStringLiteral("b.QVJ")} << true << "1 asked 1 in # | #/b.QVJ | #/b.QVJ|# |  | a.qvj b.QVJ | again 1";
        QTest::newRow("failure keeps the name, tries it again without asking") << "" << QStringList{QStringLiteral("missing/x.qvj")} << false << "0 asked 1 in /start | #/missing/x.qvj |  | 3 Quorvanta Error|Error while writing file! |  | again 1";
        // clang-format on
    }

    void save()
    {
        QFETCH(QString, opened);
        QFETCH(QStringList, answers);
        QFETCH(bool, saveAs);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        qvtest::ScriptedDialogs dialogs;
        if (!opened.isEmpty()) {
            QString file = dir.filePath(opened);
            QVERIFY(qvtest::writeProject(file, 2) && chart->m_openProject(&file));
            qvtest::flushDeletions();
            changes.clear();
        }
        for (const QString &answer : answers)
            dialogs.fileNames << dir.filePath(answer);
        const bool result = saveAs ? chart->s_saveProjectAs() : chart->s_saveProject();
        QString found = QStringLiteral("%1 asked %2").arg(result).arg(dialogs.fileDialogs.size());
        if (!dialogs.fileDialogs.isEmpty())
            found += QStringLiteral(" in ") + dialogs.fileDialogs.first().directory;
        found +=
            QStringLiteral(" | %1 | %2 | %3 | ")
                .arg(chart->m_getProjectFile(), changes.join(QLatin1Char(',')), messages(dialogs)) +
            QDir(dir.path())
                .entryList({QStringLiteral("*.qvj"), QStringLiteral("*.QVJ"), QStringLiteral("plain")}, QDir::Files)
                .join(QLatin1Char(' '));
        chart->s_saveProject();
        found += QStringLiteral(" | again %1").arg(dialogs.fileDialogs.size());
        QCOMPARE(found.replace(dir.path(), QStringLiteral("#")), expected);
    }

    void importRoutine_data()
    {
        // clang-format off
        QTest::addColumn<QString>("file");  // "" cancels the file dialog
        QTest::addColumn<int>("failure");   // the reader's FileError
        // result, the file dialog, messages (0 question, 2 warning, 3 critical),
        // the progress shown at the question, the import folder, the rows
        // (+ ticked) and the mode box afterwards.
        QTest::addColumn<QString>("expected");
#define DIALOG "Open Test Sampling|Test Sampling (*.tst)|/imports | "
        QTest::newRow("file dialog cancelled") << "" << int(qv::FileError::None) << "0 " DIALOG " |  | /imports | | -";
        QTest::newRow("imported") << "/data/cellar/run.tst" << int(qv::FileError::None) << "1 " DIALOG "0 Quorvanta|Load the state file too?, 2 Quorvanta Error|Line 3 of /data/cellar/run.tst was skipped. | Importing Sampling Data.../Test Data | /data/cellar | Set 0+ Set 1- Set 2+ | mode+";
        QTest::newRow("file cannot be read") << "/data/x.tst" << int(qv::FileError::CannotOpen) << "0 " DIALOG "3 Quorvanta Error|Reader failed. |  | /imports | | -";
        QTest::newRow("bad contents") << "/data/x.tst" << int(qv::FileError::BadContents) << "0 " DIALOG "2 Quorvanta Error|Reader failed. |  | /imports | | -";
        QTest::newRow("sibling files: the same text for all") << "/data/x.tst" << int(qv::FileError::SiblingFiles) << "0 " DIALOG "2 Quorvanta Error|Error while loading additional vaporix files! |  | /imports | | -";
        // clang-format on
    }

    // The routine asks for the file, runs the reader under a progress dialog,
    // shows its questions and warnings and then the rows; a failure shows its
    // box and keeps the chart and the import folder. An import is bound to no file.
    void importRoutine()
    {
        QFETCH(QString, file);
        QFETCH(int, failure);
        QFETCH(QString, expected);
        qvtest::ScriptedDialogs dialogs;
        QString progressAtMessage;  // shown while the reader asks
        dialogs.onMessage = [&](const qv::MessageRecord &m) {
            if (m.kind == qv::MessageKind::Question)
                progressAtMessage = progressTexts(window.get()).join(QLatin1Char(' '));
        };
        dialogs.fileNames << file;
        dialogs.answers << QMessageBox::Yes;
        ::failure = failure == int(qv::FileError::None)
                        ? qv::FileResult()
                        : qv::FileResult::failure("Reader failed.", qv::FileError(failure));
        QString found = QString::number(chart->m_runImport(kFakeKind));
        ::failure = qv::FileResult();
        for (const qv::FileDialogRecord &d : dialogs.fileDialogs)
            found += QStringLiteral(" %1|%2|%3").arg(d.caption, d.filter, d.directory);
        found +=
            QStringLiteral(" | %1 | %2 | %3 | ").arg(messages(dialogs), progressAtMessage, chart->m_getImportDir());
        for (int i = 0; i < 16; ++i) {
            auto *box = window->findChild<QCheckBox *>(QStringLiteral("enableBox%1").arg(i));
            if (box->isEnabled())
                found += box->text() + QLatin1String(box->isChecked() ? "+ " : "- ");
        }
        auto *modeBox = window->findChild<QCheckBox *>(QStringLiteral("modeBox"));
        found += QLatin1String(modeBox->isHidden() ? "| -" : modeBox->isChecked() ? "| mode+" : "| mode-");
        found += QLatin1String(chart->m_getProjectFile().isEmpty() && changes.isEmpty() ? "" : " bound");
        QCOMPARE(found, expected);
    }

    void exportCsv_data()
    {
        // clang-format off
        QTest::addColumn<bool>("zoomed");    // on samples 5..9 of 0..19
        QTest::addColumn<bool>("onlyZoom");  // the answer to the question
        QTest::addColumn<QString>("file");  // "" cancels the file dialog
        // the file dialog's proposal, the messages, the header (shown sets
        // only) and the number of rows written.
        QTest::addColumn<QString>("expected");
#define ZOOMED "0 Export Data (CSV)|The chart is zoomed in. Export only the samples it shows? No exports the whole selected range."
        QTest::newRow("not zoomed: no question, the selected range") << false << false << "t.csv" << "#/a.csv |  | Date/Time;Set 0;Set 2;State 20";
        QTest::newRow("zoomed, Yes: the zoom window") << true << true << "t.csv" << "#/a.csv | " ZOOMED " | Date/Time;Set 0;Set 2;State 5";
        QTest::newRow("zoomed, No: the selected range") << true << false << "t.csv" << "#/a.csv | " ZOOMED " | Date/Time;Set 0;Set 2;State 20";
        QTest::newRow("cancelled: nothing written") << false << false << "" << "#/a.csv |  |  0";
        QTest::newRow("write error") << false << false << "no/t.csv" << "#/a.csv | 3 Quorvanta Error|Error while writing file! |  0";
        // clang-format on
    }

    // Export Data (CSV): the shown data sets over the selected range, or over
    // the zoom window when the user answers Yes.
    void exportCsv()
    {
        QFETCH(bool, zoomed);
        QFETCH(bool, onlyZoom);
        QFETCH(QString, file);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        QString project = dir.filePath(QStringLiteral("a.qvj"));
        QVERIFY(qvtest::writeProject(project, 3, true) && chart->m_openProject(&project));
        if (zoomed) {
            chart->model().settings.viewBegin = chart->model().data(0)->time[5];
            chart->model().settings.viewEnd = chart->model().data(0)->time[9];
        }
        qvtest::ScriptedDialogs dialogs;
        dialogs.answers << (onlyZoom ? QMessageBox::Yes : QMessageBox::No);
        dialogs.fileNames << (file.isEmpty() ? file : dir.filePath(file));
        chart->s_exportCSV();
        const QList<QByteArray> lines = qvtest::readFile(dir.filePath(file)).split('\n');
        QString found = QStringLiteral("%1 | %2 | %3 %4")
                            .arg(dialogs.fileDialogs.value(0).directory, messages(dialogs),
                                 QString::fromUtf8(lines.first().trimmed()))
                            .arg(qMax(0, lines.size() - 2));
        QCOMPARE(found.replace(dir.path(), QStringLiteral("#")), expected);
    }
};

QTEST_MAIN(TestChartDocument)
#include "tst_chartdocument.moc"
