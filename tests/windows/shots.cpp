// Draws every window into PNG files, to be looked at: kiro_shots FOLDER LANGUAGE RECORDING

#include "appconfig.h"
#include "blinksdetectparams.h"
#include "curveplot.h"
#include "datafilecenterimpl.h"
#include "eyerecording.h"
#include "inistore.h"
#include "kirolabeldlg.h"
#include "kirolabeltemplateeditdlg.h"
#include "kiroreader.h"
#include "language.h"
#include "mainwindowimpl.h"
#include "multiplot.h"
#include "pensetupdialog.h"
#include "plotshots.h"
#include "positionselector.h"
#include "questiondialog.h"
#include "reviewframeimpl.h"
#include "saccadecenterimpl.h"
#include "saccadecenteroptions.h"
#include "saccdetectparams.h"
#include "selectsignal.h"
#include "selectsignals.h"
#include "separatordlg.h"
#include "themedicon.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QPdfWriter>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace
{

QDir folder;
QString ending = QStringLiteral(".png");

[[noreturn]] void giveUp(const QString& path)
{
    std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    std::exit(1);
}

void keep(QWidget& window, const QString& name)
{
    QApplication::processEvents();
    const QString path = folder.filePath(name + ending);
    if (!window.grab().save(path))
        giveUp(path);
}

/// A page as PDF, the way a printer gets it.
void keepPage(const QString& name, const std::function<void(QPainter& painter, const QRect& rect)>& draw)
{
    const QString path = folder.filePath(name + QStringLiteral(".pdf"));
    QPdfWriter writer(path);
    writer.setResolution(600);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape,
                                     QMarginsF(10.0, 10.0, 10.0, 10.0), QPageLayout::Millimeter));
    QPainter painter;
    if (!painter.begin(&writer))
        giveUp(path);
    draw(painter, QRect(0, 0, writer.width(), writer.height()));
    if (!painter.end())
        giveUp(path);
}

void useDarkDesktop()
{
    const QColor window(0x2b, 0x2d, 0x30);
    const QColor text(0xe0, 0xe0, 0xe0);
    QPalette palette(window);
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x80, 0x80, 0x80));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x80, 0x80, 0x80));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x80, 0x80, 0x80));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x7e, 0xc4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(palette);
    ending = QStringLiteral("-dark.png");
}

/// Keeps the box that comes next and closes it without a choice.
void keepNextBox(const QString& name)
{
    QTimer::singleShot(100, [name] {
        if (QWidget* const box = QApplication::activeModalWidget()) {
            keep(*box, name);
            box->close();
        }
    });
}

void showLauncher()
{
    MainWindow window;
    window.show();
    keep(window, QStringLiteral("launcher"));
}

void showFileBrowser(const QString& recording)
{
    DataFileCenter window;
    window.show();
    keep(window, QStringLiteral("filebrowser-empty"));
    window.openFile(recording);
    keep(window, QStringLiteral("filebrowser-recording"));
    window.resize(window.minimumSizeHint());
    keep(window, QStringLiteral("filebrowser-smallest"));
}

/// A copy of the recording that declares fewer packets than it holds, in a folder of a short name.
void showCorruptedFile(const QString& recording)
{
    const QTemporaryDir copies;
    const QString copy = copies.filePath(QStringLiteral("corrupted.kiro"));
    KiroReader reader;
    if (!QFile::copy(recording, copy) || !reader.setFile(copy))
        std::exit(1);
    reader.header().setFrameCount(0);
    reader.updateHeader();
    DataFileCenter window;
    window.show();
    keepNextBox(QStringLiteral("filebrowser-question"));
    QTimer::singleShot(400, [] { keepNextBox(QStringLiteral("filebrowser-nodata")); });
    window.openFile(copy);
    keep(window, QStringLiteral("filebrowser-corrupted"));
}

void showDetectionParameters()
{
    SaccDetectParams saccades;
    saccades.setLocale(QLocale());
    saccades.setParams(SaccadeDetectionParams::atStart());
    saccades.show();
    keep(saccades, QStringLiteral("detection-saccades"));
    saccades.resize(saccades.size() * 1.4);
    keep(saccades, QStringLiteral("detection-saccades-large"));
    BlinksDetectParams blinks;
    blinks.setLocale(QLocale());
    blinks.setParams(BlinkDetectionParams::atStart());
    blinks.show();
    keep(blinks, QStringLiteral("detection-blinks"));
    blinks.resize(blinks.minimumSizeHint());
    keep(blinks, QStringLiteral("detection-blinks-smallest"));
}

void showSaccadeOptions()
{
    SaccadeCenterOptions options;
    options.show();
    auto* const tabs = options.findChild<QTabWidget*>(QStringLiteral("tabs"));
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        keep(options, QStringLiteral("saccade-options-%1").arg(i + 1));
    }
    tabs->setCurrentIndex(1);
    options.resize(options.minimumSizeHint());
    keep(options, QStringLiteral("saccade-options-smallest"));
    options.resize(options.size() * 1.4);
    keep(options, QStringLiteral("saccade-options-large"));
}

/// A new saccades browser that shows the recording, whose signals need no question.
std::unique_ptr<SaccadeCenter> saccadesOf(const QString& recording)
{
    IniStore store;
    store.load(appConfig().configFile());
    store.setSection(SaccadeCenter::section());
    store.setBool(QStringLiteral("ask_for_signals_selection_confirmation"), false);
    store.setDouble(QStringLiteral("time_window"), TimeWindow::LengthAtStart);
    store.saveAs(appConfig().configFile());
    auto window = std::make_unique<SaccadeCenter>();
    window->detectIn(recording, false);
    window->show();
    return window;
}

/// Closes a window without saving.
void closeUnsaved(SaccadeCenter& window)
{
    QTimer::singleShot(100, [] {
        if (QWidget* const question = QApplication::activeModalWidget())
            question->findChild<QPushButton*>(QStringLiteral("button1"))->click();
    });
    window.close();
}

void trigger(SaccadeCenter& window, const char* action)
{
    window.findChild<QAction*>(QLatin1String(action))->trigger();
}

/// `oneEye` is a recording of one signal.
void showSaccades(const QString& recording, const QString& oneEye)
{
    SaccadeCenter empty;
    empty.show();
    keep(empty, QStringLiteral("saccades-empty"));
    const std::unique_ptr<SaccadeCenter> both = saccadesOf(recording);
    trigger(*both, "actionSaccNext");
    keep(*both, QStringLiteral("saccades-both-eyes"));
    for (int i = 0; i < 22; ++i)
        both->findChild<QToolButton*>(QStringLiteral("buttonTimeZoomOut"))->click();
    keep(*both, QStringLiteral("saccades-both-eyes-long"));
    both->resize(both->minimumSizeHint());
    keep(*both, QStringLiteral("saccades-both-eyes-smallest"));
    keepNextBox(QStringLiteral("saccades-selection"));
    trigger(*both, "actionSaccRemoveSelected");
    keepNextBox(QStringLiteral("saccades-unsaved"));
    both->close();
    closeUnsaved(*both);

    const std::unique_ptr<SaccadeCenter> one = saccadesOf(oneEye);
    trigger(*one, "actionSaccLast");
    keep(*one, QStringLiteral("saccades-one-signal"));
    auto* const plot = one->findChild<CurvePlot*>(QStringLiteral("plotRightHorzPosition"));
    const double free = plot->horzMin() + 2.2; // seconds; no saccade is there
    const QPoint start(plot->horzScalePoints(free), plot->plotArea().center().y());
    const QPoint end(plot->horzScalePoints(free + 0.2), start.y());
    QMouseEvent press(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
    QMouseEvent move(QEvent::MouseMove, end, Qt::NoButton, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(plot, &press);
    QApplication::sendEvent(plot, &move);
    keep(*one, QStringLiteral("saccades-adding"));
    QMouseEvent release(QEvent::MouseButtonRelease, end, Qt::LeftButton, Qt::NoButton, Qt::ShiftModifier);
    QApplication::sendEvent(plot, &release);
    keep(*one, QStringLiteral("saccades-added"));
    closeUnsaved(*one);
}

void moveMouse(MultiPlot& strips, const QPoint& place, Qt::MouseButtons buttons = Qt::NoButton)
{
    QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(&strips, &move);
}

/// Drags over the strips without letting the button go.
void dragOver(MultiPlot& strips, const QPoint& start, const QPoint& end)
{
    QMouseEvent press(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&strips, &press);
    moveMouse(strips, end, Qt::LeftButton);
}

void showSignals(const QString& recording)
{
    ReviewFrame window;
    window.show();
    keep(window, QStringLiteral("review-empty"));
    window.loadFile(recording);
    keep(window, QStringLiteral("review-all"));

    auto& strips = *window.findChild<MultiPlot*>();
    auto& selector = *window.findChild<PositionSelector*>();
    auto& list = *window.findChild<QListWidget*>(QStringLiteral("listSignals"));
    for (int i = 4; i < list.count(); ++i)
        list.item(i)->setSelected(false);
    for (int i = 0; i < 3; ++i)
        selector.zoomIn();
    selector.stepLeft(25.0);
    KiroLabel label;
    label.setupPoint(0, 12500, 0.0, QStringLiteral("fixation"), QString(), QColor(0xb5, 0x3a, 0x16));
    strips.addLabel(label);
    label.setupTimePeriod(10500, 11500, QStringLiteral("stimulus"), QString(), QColor(0x1e, 0x7b, 0x34));
    strips.addLabel(label);
    moveMouse(strips, strips.rect().center());
    keep(window, QStringLiteral("review-some"));
    const QPoint centre = strips.rect().center();
    for (const char* button : {"buttonModeMeasure", "buttonModeZoom", "buttonModePoint", "buttonModeTimeLine",
                               "buttonModeSignalPeriod", "buttonModeTimePeriod"}) {
        window.findChild<QToolButton*>(QLatin1String(button))->click();
        moveMouse(strips, centre);
        if (strips.userMode != UserModePoint && strips.userMode != UserModeLine)
            dragOver(strips, centre, centre + QPoint(120, 0));
        keep(window, QStringLiteral("review-") + QString::fromLatin1(button).mid(10).toLower());
        QApplication::sendEvent(
            &strips, std::make_unique<QKeyEvent>(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier).get());
    }
    window.resize(window.minimumSizeHint());
    keep(window, QStringLiteral("review-smallest"));
    window.resize(900, 520);
    list.clearSelection();
    keep(window, QStringLiteral("review-none"));
}

/// A recording with the right horizontal eye signal of another one alone.
QString oneSignalOf(const QString& recording, const QString& path)
{
    KiroReader reader;
    QVector<double> samples;
    if (!reader.setFile(recording) || !KiroReader::readSignal(recording, 0, samples))
        std::exit(1);
    std::vector<double> degrees(samples.begin(), samples.end());
    QFile file(path);
    const std::string bytes = eyeRecording({{"eye position", degrees}});
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), qint64(bytes.size())) < 0)
        giveUp(path);
    return path;
}

/// Names as recordings have them, and one that no window has room for.
QStringList signalNames(int count)
{
    QStringList names{QStringLiteral("EYE_RIGHT_HORIZONTAL"), QStringLiteral("EYE_RIGHT_VERTICAL"),
                      QStringLiteral("HEAD_GYROSCOPE_PITCH"),
                      QStringLiteral("LONG_") + QString(280, QLatin1Char('X')) + QStringLiteral("_NAME")};
    while (names.size() < count)
        names << QStringLiteral("CHANNEL_%1").arg(names.size() + 1, 3, 10, QLatin1Char('0'));
    return names;
}

void showSignalSelection()
{
    SelectSignal several;
    several.setWindowTitle(QStringLiteral("Select additional signals to be exported"));
    several.setInfoText(QStringLiteral("The selected signals are written beside the saccades."));
    several.setDataFile(QStringLiteral("/home/researcher/recordings/2024/patient-0042/session-3/%1/eye.kiro")
                            .arg(QString(60, QLatin1Char('x'))));
    several.setSelectionMode(2);
    several.setColumns({QStringLiteral("Signal name"), QStringLiteral("Frequency [Hz]")}, {true, false});
    for (const QString& name : signalNames(140))
        several.addItem(name + QStringLiteral("\t1000"));
    several.show();
    keep(several, QStringLiteral("signals-140"));
    auto* const list = several.findChild<QTreeWidget*>(QStringLiteral("list"));
    for (const int row : {0, 1, 15, 16})
        list->topLevelItem(row)->setSelected(true);
    several.findChild<QLineEdit*>(QStringLiteral("editFilter"))->setText(QStringLiteral("channel 1"));
    keep(several, QStringLiteral("signals-140-filter"));
    several.resize(several.minimumSizeHint());
    keep(several, QStringLiteral("signals-140-smallest"));

    SelectSignal one;
    one.setWindowTitle(QStringLiteral("Select signal to be exported"));
    one.setColumns({QStringLiteral("Signal name")}, {true});
    for (const QString& name : signalNames(6))
        one.addItem(name);
    one.show();
    one.findChild<QTreeWidget*>(QStringLiteral("list"))->topLevelItem(1)->setSelected(true);
    keep(one, QStringLiteral("signal-one"));

    SelectSignals roles;
    roles.setInfoText(QStringLiteral("Please confirm or change the signals selection"));
    int current = 0;
    for (const char* role : {"right eye horizontal movement (default)", "right eye vertical movement",
                             "left eye horizontal movement", "left eye vertical movement"})
        roles.addRole(QLatin1String("Select ") + QLatin1String(role), signalNames(140), current++);
    roles.show();
    keep(roles, QStringLiteral("signal-roles"));
}

void showSmallDialogs()
{
    SeparatorDlg separator;
    separator.setSeparator(QStringLiteral("||"));
    separator.show();
    keep(separator, QStringLiteral("separator"));

    QWidget parent;
    parent.setWindowTitle(QStringLiteral("Saccades browser"));
    const auto icon = [&parent](const char* name, int size) {
        return themedIcon(QLatin1String(name)).pixmap(parent.windowHandle(), QSize(size, size));
    };
    keepNextBox(QStringLiteral("question"));
    QuestionDialog::question(
        &parent, QStringLiteral("There are unsaved changes in the current data!\nWhat would you like to do?"),
        icon("saccades-browser", 48), QStringLiteral("   Save changes and open"), icon("save-as", 24),
        QStringLiteral("   Don't save changes and open"), icon("open", 24),
        QStringLiteral("   Cancel and go back to the current data"), icon("close", 24), 2);

    PenSetupDialog pen;
    pen.setPen(QPen(QBrush(QColor(0x1a, 0x73, 0xc8)), 2, Qt::DashDotLine, Qt::FlatCap, Qt::BevelJoin));
    pen.show();
    keep(pen, QStringLiteral("pen"));
    pen.resize(pen.minimumSizeHint());
    keep(pen, QStringLiteral("pen-smallest"));
}

QList<LabelTemplate> labelTemplates()
{
    QList<LabelTemplate> templates;
    for (const auto& [name, color] :
         {std::pair("Saccade", Qt::green), std::pair("Blink", Qt::blue), std::pair("Artefact", Qt::red),
          std::pair("Calibration", Qt::yellow), std::pair("Question to a colleague", Qt::magenta)})
        templates << LabelTemplate{QLatin1String(name), QLatin1String(name),
                                   QStringLiteral("Seen in both eyes,\nto be measured."), color};
    return templates;
}

void showLabelDialogs()
{
    KiroLabel label;
    label.setupSignalPeriod(1, 12345, 13579, QStringLiteral("Saccade"),
                            QStringLiteral("Seen in both eyes,\nto be measured."), QColor(0x1a, 0x73, 0xc8));
    label.value = -12.5;
    for (uint i = 0; i < KiroLabel::TypeCount; ++i) {
        KiroLabelDlg dialog;
        label.type = KiroLabel::indexToType(i);
        dialog.setData(signalNames(6), {QStringLiteral("deg"), QStringLiteral("deg")}, 60.0, label,
                       labelTemplates());
        dialog.show();
        keep(dialog, QStringLiteral("label-%1").arg(label.type));
    }
    KiroLabelDlg dialog;
    label.setupPoint(3, 1, -0.25, signalNames(4).last(), signalNames(4).last(), Qt::yellow);
    dialog.setData(signalNames(6), QStringList(signalNames(4)), 60.0, label, {});
    dialog.show();
    keep(dialog, QStringLiteral("label-long-names"));
    dialog.resize(dialog.minimumSizeHint());
    keep(dialog, QStringLiteral("label-smallest"));
    dialog.resize(dialog.size() * 1.5);
    keep(dialog, QStringLiteral("label-large"));

    KiroLabelTemplateEditDlg templates;
    templates.setTemplates(labelTemplates());
    templates.show();
    keep(templates, QStringLiteral("label-templates"));
    templates.resize(templates.minimumSizeHint());
    keep(templates, QStringLiteral("label-templates-smallest"));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4) {
        std::fprintf(stderr, "usage: kiro_shots FOLDER LANGUAGE RECORDING\n");
        return 2;
    }
    folder = QDir(arguments[1]);
    if (!folder.mkpath(QStringLiteral(".")))
        return 1;
    const QTemporaryDir settings;
    appConfig().setConfigFile(settings.filePath(QStringLiteral("settings.ini")));
    appConfig().setSignalsFile(settings.filePath(QStringLiteral("signals.ini")));
    const bool polish = arguments[2] == Language::polish();
    QLocale::setDefault(polish ? QLocale(QLocale::Polish, QLocale::Poland) : QLocale(QLocale::English));
    const Translators translators(arguments[2]);
    showLauncher();
    showFileBrowser(arguments[3]);
    showCorruptedFile(arguments[3]);
    showDetectionParameters();
    showSaccadeOptions();
    const QString oneEye = oneSignalOf(arguments[3], settings.filePath(QStringLiteral("one.kiro")));
    showSaccades(arguments[3], oneEye);
    showSignals(arguments[3]);
    showSignalSelection();
    showSmallDialogs();
    showLabelDialogs();
    showPlots(keep, keepPage);
    useDarkDesktop();
    showDetectionParameters();
    showSaccadeOptions();
    showSaccades(arguments[3], oneEye);
    showSignals(arguments[3]);
    showSignalSelection();
    showSmallDialogs();
    showLabelDialogs();
    showPlotsOfDesktop(keep);
    return 0;
}
