// Draws every window into PNG files, to be looked at: kiro_shots FOLDER LANGUAGE RECORDING

#include "appconfig.h"
#include "blinksdetectparams.h"
#include "datafilecenterimpl.h"
#include "kiroreader.h"
#include "language.h"
#include "mainwindowimpl.h"
#include "pensetupdialog.h"
#include "plotshots.h"
#include "questiondialog.h"
#include "saccdetectparams.h"
#include "selectsignal.h"
#include "selectsignals.h"
#include "separatordlg.h"
#include "themedicon.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include <cstdio>
#include <cstdlib>

namespace
{

QDir folder;

void keep(QWidget& window, const QString& name)
{
    QApplication::processEvents();
    const QString path = folder.filePath(name + QStringLiteral(".png"));
    if (!window.grab().save(path)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        std::exit(1);
    }
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
    const bool polish = arguments[2] == Language::polish();
    QLocale::setDefault(polish ? QLocale(QLocale::Polish, QLocale::Poland) : QLocale(QLocale::English));
    const Translators translators(arguments[2]);
    showLauncher();
    showFileBrowser(arguments[3]);
    showCorruptedFile(arguments[3]);
    showDetectionParameters();
    showSignalSelection();
    showSmallDialogs();
    showPlots(keep);
    return 0;
}
