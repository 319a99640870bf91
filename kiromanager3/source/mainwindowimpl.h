#pragma once

#include <QList>
#include <QWidget>

#include <memory>

class DataFileCenter;
class QNetworkAccessManager;
class QNetworkReply;
class ReviewFrame;
class SaccadeCenter;
struct UpdateOffer;

namespace Ui
{
class MainWindowBase;
}

/// The launcher: the program's first window, with a button for each module.
///
/// It keeps no list of the windows that it opens; they live by themselves, also when it is closed.
class MainWindow : public QWidget
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Name of its section in the settings file.
    static QString section() { return QStringLiteral("MAIN"); }

public slots:
    /// Each opens one more window of its module, and returns it.
    DataFileCenter* onDataFiles();
    ReviewFrame* onDataReview();
    SaccadeCenter* onDataSaccades();

    /// Asks for the language of later starts.
    void onChangeLanguage();
    /// Asks the update server for the newest version; the answer comes to replyFinished().
    void onCheckForUpdates();
    /// Shows the message log in the system's viewer.
    void onOpenMessageLogFile();
    /// Shows what the server has on offer, or why that cannot be said.
    void replyFinished(QNetworkReply* reply);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// Opens the files of OpenKiroFileEvent and OpenSaccFileEvent, each in a new window.
    void customEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void setUpButtons();
    void setUpSetupMenu();
    void setUpShortcuts();
    void dropChecks();
    void showOffer(const UpdateOffer& offer);
    void showNewerVersion(const QString& version);

    std::unique_ptr<Ui::MainWindowBase> m_ui;
    QNetworkAccessManager* m_network; ///< for the update check only
    QList<QNetworkReply*> m_checks;   ///< under way; each has set the wait cursor once
};
