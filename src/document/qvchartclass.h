// The chart widget: the document of one open project. It owns the model
// (settings record, sample stores, device-mode track), the row controls in
// the main window's data set panel, and the file, import and display code.
#pragma once

#include "core/import/inputkind.h"
#include "core/model/chartmodel.h"
#include "gui/ui/elidedcheckbox.h"
#include "gui/ui/waitcursor.h"

#include <QByteArray>
#include <QPointF>
#include <QPointer>
#include <QVector>
#include <QPrinter>
#include <QString>
#include <QtCharts/QChartView>

#include <functional>
#include <memory>

class QCheckBox;
class QDialog;
class QGridLayout;
class QIcon;
class QLabel;
class QPrinter;
class QTimer;
class QToolButton;
class ToolTipClass;

namespace QtCharts {
class QLineSeries;
}

namespace qv {
struct FileResult;
struct SamplingFormat;
}  // namespace qv

class QVChartClass : public QtCharts::QChartView
{
    Q_OBJECT

public:
    // The view is created without a parent; the main window puts it into its
    // scroll area. The row controls go into rowGrid (rows 0..17).
    QVChartClass(QWidget *mainWindow, QString *projectDir, QString *importDir, QGridLayout *rowGrid);
    ~QVChartClass() override;

    const QString &m_getImportDir() const { return importDir; }
    void m_setProjectFile(QString &file, QString &dir);

    // Loads a project; asks for a file when file is null or empty.
    bool m_openProject(QString *file);

    // New project from a sampling file of the given kind; asks for the file
    // first unless one is given (a file dropped on the window or named at
    // start). False for a kind that is no sampling file.
    bool m_importSampling(qv::InputKind kind, const QString &path = QString());
    // The chooser's three imports: controller CSV, controller binary log,
    // vaporix-VIS CSV.
    bool m_importCSV(const QString &path = QString()) { return m_importSampling(qv::InputKind::ControllerCsv, path); }
    bool m_importDAT(const QString &path = QString()) { return m_importSampling(qv::InputKind::ControllerLog, path); }
    bool m_importVap(const QString &path = QString()) { return m_importSampling(qv::InputKind::VisCsv, path); }

    // Builds the chart of the model into view (this widget, or a print view).
    void m_displayChart(QtCharts::QChartView *view, bool forPrint);
    // Writes min/avg/max of the window from..to into the legend entries.
    void m_setMinMaxAvg(QtCharts::QChart *chart, qint64 from, qint64 to);

    // Common error exits of a load or import: show the message, release the
    // progress dialog, restore the cursor. Both return 0.
    int m_returnError(QDialog *progress, const QString &message);
    int m_returnExtError(QDialog *progress);

    qv::ChartModel &model() { return *chartModel; }
    const qv::ChartModel &model() const { return *chartModel; }
    const QString &m_getProjectFile() const { return projectFile; }
    const QString &m_getProjectDir() const { return projectDir; }

private:
    QWidget *mainWindow;
    // Row controls in the main window's panel, found there by object name
    // ("enableBox0".."enableBox15", "setupButton0".., "modeBox", "infoLabel").
    qv::ElidedCheckBox *enableBox[qv::kMaxDataSets];
    QToolButton *setupButton[qv::kMaxDataSets];
    QCheckBox *modeBox;
    QLabel *infoLabel;
    // The two state-band lines of the last build (owned here, not by the chart).
    QtCharts::QLineSeries *modeSeries = nullptr;
    QtCharts::QLineSeries *modeSeries2 = nullptr;
    // The hover callout, an item of the view's scene (made on first use).
    ToolTipClass *tooltip = nullptr;
    // Pixel column of the last drag step (set by a left-button press).
    double lastX = 0.0;
    // Restores smooth, full lines once a wheel or drag gesture rests.
    QTimer *settleTimer = nullptr;
    // The full points of the lines thinned for a gesture, and their chart.
    QPointer<QtCharts::QChart> thinnedChart;
    QVector<QVector<QPointF>> fullPoints;

    QString projectDir;
    QString projectFile;
    QString importDir;
    std::unique_ptr<qv::ChartModel> chartModel;
    // The model's settings record, shared by the file, import and chart code.
    settingsT &settings;
    qv::WaitCursor waitCursor;

signals:
    void m_enableSettings(bool enable);
    void m_projectFileChanged(QString *file, QString *dir);
    void m_projectChanged();
    void m_showHelp(QWidget *parent, QString *page);

public slots:
    bool s_saveProject();
    bool s_saveProjectAs();
    void s_projectChanged();
    void s_exportPDF();
    // The shown data sets' samples as a CSV table.
    void s_exportCSV();
    void s_print();
    void s_formatChart();
    void s_chooseData();
    void s_printDocument(QPrinter *printer);
    void s_showHelp(QWidget *parent, QString *page);
    void s_tooltip(QPointF point, bool state);
    void s_enableLine();
    void s_setupLine();

protected:
    void changeEvent(QEvent *event) override;
    // Wheel zoom and drag pan of the time axis inside the selected range;
    // keys + and - zoom around the centre, arrows pan, Home shows the range.
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    // The import routine shared by the sampling formats: file dialog (when no
    // path is given), progress, core reader, rows, chart, import directory.
    bool m_runImport(const qv::SamplingFormat &format, const QString &givenPath = QString());

private:
    // Shows the rows as the model's row states say (ticks before connecting,
    // so that no redraw runs per row), then connects them.
    void m_showRows();
    // Row box index follows the record: name, tick (without a redraw).
    void m_showRow(int index);
    // Runs a dialog that edits its own copy of the settings record (edited).
    // Only an accepted dialog's copy replaces the record; then apply() brings
    // the rest of the document in line and the chart is drawn anew. The
    // dialog goes by deferred deletion either way. True when accepted.
    bool m_runSettingsDialog(QDialog *dialog, const settingsT &edited, const std::function<void()> &apply);
    // Shows why a load or import failed and releases what it held; false.
    bool m_fail(const qv::FileResult &result, QDialog *progress);
    void m_setWaitCursor();
    void m_restoreCursor();
    void m_retranslate();
    // Sets up the page printer and runs the print preview on it.
    void m_printPreview(const QString &title, const QIcon &icon, QPrinter::OutputFormat format);
    // The visible window becomes begin..end: legend statistics, model; the
    // state label is cleared.
    void m_takeWindow(qint64 begin, qint64 end);
    // A wheel step at pointer column x (delta > 0 zooms in); false if ignored.
    bool m_wheelStep(double x, int delta);
    // Moves the window by pixels of the plot (positive: later times), up to
    // the ends of the range; false if it stayed.
    bool m_panStep(double pixels);
    // A drag from lastX to pixel x.
    void m_dragStep(int x);
    // A wheel or drag step draws without antialiasing, so the frames keep up
    // with the pointer; the smooth picture returns when the gesture rests.
    void m_fastFrame();
    void m_settle();
    void m_showState(QPointF position);
    ToolTipClass *m_callout();
};
