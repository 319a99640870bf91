// Draws every window into PNG files, to be looked at: kiro_shots FOLDER LANGUAGE RECORDING

#include "appconfig.h"
#include "blinksdetectparams.h"
#include "datafilecenterimpl.h"
#include "kiroreader.h"
#include "language.h"
#include "mainwindowimpl.h"
#include "saccdetectparams.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

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
    return 0;
}
