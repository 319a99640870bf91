#include "mainwindowimpl.h"

#include "appconfig.h"
#include "datafilecenterimpl.h"
#include "inistore.h"
#include "language.h"
#include "messages.h"
#include "modulewindow.h"
#include "openfiles.h"
#include "palettecolours.h"
#include "reviewframeimpl.h"
#include "saccadecenterimpl.h"
#include "settingsedit.h"
#include "themedicon.h"
#include "ui_mainwindowbase.h"
#include "updatecheck.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDebug>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFontInfo>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QShortcut>

namespace
{

/// Marks a reply that was cut off because it is too long to be a list of versions.
constexpr const char* TooLong = "tooLong";

void enlargeFont(QWidget* widget, double factor)
{
    QFont font = widget->font();
    font.setPointSizeF(factor * QFontInfo(font).pointSizeF());
    widget->setFont(font);
}

/// The files of a drag that the launcher can open.
QStringList openableFiles(const QMimeData* data)
{
    QStringList paths;
    for (const QUrl& url : data->urls()) {
        const QString path = url.toLocalFile();
        if (openEventFor(path) || isForImport(path))
            paths.append(path);
    }
    return paths;
}

QString updateServerOfSettings()
{
    IniStore store;
    store.load(appConfig().configFile());
    return updateServer(store);
}

void cutOffIfTooLong(QNetworkReply* reply)
{
    if (reply->bytesAvailable() <= UpdateReplyLimitBytes || reply->isFinished())
        return;
    reply->setProperty(TooLong, true);
    reply->abort();
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::MainWindowBase>())
    , m_network(new QNetworkAccessManager(this))
{
    m_ui->setupUi(this);
    setWindowTitle(QStringLiteral("KiroManager ") + appConfig().version());
    setAcceptDrops(true);
    enlargeFont(m_ui->labelHeadline, 1.6);
    muteText(*m_ui->labelExplanation);
    setUpButtons();
    setUpSetupMenu();
    setUpShortcuts();
    connect(m_network, &QNetworkAccessManager::finished, this, &MainWindow::replyFinished);
    m_ui->buttonDataFiles->setFocus();
}

MainWindow::~MainWindow()
{
    dropChecks();
}

void MainWindow::setUpButtons()
{
    const std::pair<QAbstractButton*, QString> icons[] = {
        {m_ui->buttonDataFiles, QStringLiteral("file-browser")},
        {m_ui->buttonDataReview, QStringLiteral("signals-browser")},
        {m_ui->buttonDataSaccades, QStringLiteral("saccades-browser")},
        {m_ui->buttonSetup, QStringLiteral("setup")},
        {m_ui->buttonExit, QStringLiteral("exit")}};
    for (const auto& [button, name] : icons)
        button->setIcon(themedIcon(name));
    connect(m_ui->buttonDataFiles, &QPushButton::clicked, this, &MainWindow::onDataFiles);
    connect(m_ui->buttonDataReview, &QPushButton::clicked, this, &MainWindow::onDataReview);
    connect(m_ui->buttonDataSaccades, &QPushButton::clicked, this, &MainWindow::onDataSaccades);
    connect(m_ui->buttonExit, &QPushButton::clicked, this, &QWidget::close);
}

void MainWindow::setUpSetupMenu()
{
    auto* const menu = new QMenu(this);
    menu->addAction(themedIcon(QStringLiteral("language")), tr("Change language"), this,
                    &MainWindow::onChangeLanguage);
    menu->addAction(themedIcon(QStringLiteral("updates")), tr("Check for updates"), this,
                    &MainWindow::onCheckForUpdates);
    menu->addAction(themedIcon(QStringLiteral("log")), tr("Open message log file"), this,
                    &MainWindow::onOpenMessageLogFile);
    m_ui->buttonSetup->setMenu(menu);
}

void MainWindow::setUpShortcuts()
{
    auto* const open = new QShortcut(QKeySequence(QStringLiteral("Ctrl+O")), this);
    connect(open, &QShortcut::activated, this, &MainWindow::onDataFiles);
    addClosingShortcuts(this);
}

void MainWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        muteText(*m_ui->labelExplanation);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    dropChecks();
    editSection(appConfig().configFile(), section(),
                [this](IniStore& store) { store.setPoint(appConfig().winPosKey(), pos()); });
    event->accept();
}

DataFileCenter* MainWindow::onDataFiles()
{
    return openModuleWindow<DataFileCenter>(FileBrowserSettings::section());
}

ReviewFrame* MainWindow::onDataReview()
{
    return openModuleWindow<ReviewFrame>(ReviewFrame::section());
}

SaccadeCenter* MainWindow::onDataSaccades()
{
    return openModuleWindow<SaccadeCenter>(SaccadeCenter::section());
}

void MainWindow::customEvent(QEvent* event)
{
    QObject* window = nullptr;
    if (event->type() == OpenKiroFileEvent::Number)
        window = onDataReview();
    else if (event->type() == OpenSaccFileEvent::Number)
        window = onDataSaccades();
    if (window)
        QCoreApplication::postEvent(window, new OpenFileEvent(static_cast<FilePathEvent*>(event)->path()));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!openableFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    for (const QString& path : openableFiles(event->mimeData())) {
        if (std::unique_ptr<FilePathEvent> open = openEventFor(path))
            QCoreApplication::postEvent(this, open.release());
        else
            QCoreApplication::postEvent(onDataFiles(), new OpenFileEvent(path));
    }
}

void MainWindow::onChangeLanguage()
{
    const QString& configFile = appConfig().configFile();
    const QString present = settleLanguage(configFile);
    const QStringList languages{Language::polish(), Language::english()};
    const int index = present == Language::english() ? 1 : 0;
    bool confirmed = false;
    const QString choice = QInputDialog::getItem(this, windowTitle(), tr("Select application language"),
                                                 languages, index, false, &confirmed);
    if (!confirmed || choice == present)
        return;
    storeLanguage(configFile, choice);
    showInformation(this, tr("Language change will take place after application restart"));
}

void MainWindow::onOpenMessageLogFile()
{
    const QString path = QFileInfo(appConfig().logFile()).absoluteFilePath();
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        qWarning("The message log \"%s\" could not be shown", qUtf8Printable(path));
}

void MainWindow::onCheckForUpdates()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QNetworkReply* const reply = m_network->get(updateRequest(updateServerOfSettings()));
    // Not from within the reply's own work: cutting off ends it.
    connect(
        reply, &QIODevice::readyRead, reply, [reply] { cutOffIfTooLong(reply); }, Qt::QueuedConnection);
    m_checks.append(reply);
}

void MainWindow::replyFinished(QNetworkReply* reply)
{
    QApplication::restoreOverrideCursor();
    m_checks.removeOne(reply);
    const bool tooLong = reply->property(TooLong).toBool() || reply->bytesAvailable() > UpdateReplyLimitBytes;
    if (reply->error() != QNetworkReply::NoError && !tooLong) {
        showWarning(this, reply->errorString());
        return;
    }
    const QString text = tooLong ? QString() : QString::fromUtf8(reply->readAll());
    reply->deleteLater();
    showOffer(UpdateOffer::fromReply(text, appConfig().version()));
}

void MainWindow::dropChecks()
{
    const QSignalBlocker noBoxes(m_network);
    while (!m_checks.isEmpty()) {
        QNetworkReply* const reply = m_checks.takeLast();
        QApplication::restoreOverrideCursor();
        reply->abort();
        reply->deleteLater();
    }
}

void MainWindow::showOffer(const UpdateOffer& offer)
{
    switch (offer.kind) {
    case UpdateOffer::Kind::Invalid:
        showWarning(this, tr("Invalid reponse received from server!"));
        break;
    case UpdateOffer::Kind::Nothing:
        showInformation(this, tr("You have a newest version of KiroManager application."));
        break;
    case UpdateOffer::Kind::Newer:
        showNewerVersion(offer.version);
        break;
    }
}

void MainWindow::showNewerVersion(const QString& version)
{
    const QString target = updateSetupUrl(updateServerOfSettings(), version).toString(QUrl::FullyEncoded);
    const QString text =
        tr("<html>An updated version of KiroManager application is available!<br>") +
        tr("Your version is %1 , an updated version is %2.<br>")
            .arg(appConfig().version(), version.toHtmlEscaped()) +
        tr("Download it from this <a href=\"%1\">link</a></html>").arg(target.toHtmlEscaped());
    QMessageBox box(QMessageBox::Information, windowTitle(), text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::RichText);
    // The link can be reached by the keyboard too.
    box.setTextInteractionFlags(Qt::TextBrowserInteraction);
    box.exec();
}
