#pragma once

#include "filebrowsersettings.h"

#include <QWidget>

#include <memory>

class BdfImporter;
class KiroHeader;
class KiroReader;

namespace Ui
{
class DataFileCenterBase;
}

/// The file browser: shows the header and signals of one recording, repairs a wrong frame count, imports BDF
/// and EDF files, and is where the tools that work on a whole file start.
///
/// It keeps no samples and no open file: each tool reads the file itself.
class DataFileCenter : public QWidget
{
    Q_OBJECT

public:
    explicit DataFileCenter(QWidget* parent = nullptr);
    ~DataFileCenter() override;

    /// Shows the recording at `path`; offers to repair it if its header does not fit its data. A file that
    /// cannot be opened is reported, and what is on show stays.
    void openFile(const QString& path);
    /// Sets the frame count of the file to the frames that it holds. False if that is impossible; the reason
    /// is in the message log.
    bool repairFile(QString path);
    /// Converts a BDF or EDF file into a recording beside it and shows that.
    void importFile(const QString& path);

    /// The recording on show; empty means none.
    const QString& fileName() const { return m_fileName; }
    /// Whether it passed the integrity test, or was repaired, and holds data.
    bool isValid() const { return m_valid; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void customEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private slots:
    void on_buttonOpen_clicked();
    void on_buttonImport_clicked();
    void on_buttonCopyParameters_clicked();

private:
    void setUpIcons();
    void setUpTables();
    void setUpShortcuts();
    void loadSettings();
    /// A recording is shown, a BDF or EDF file imported.
    void take(const QString& path);
    bool settleIntegrity(KiroReader& reader, const QString& path);
    void showHeader(const KiroHeader& header);
    void fillSignals(const QVector<QStringList>& rows);
    void fillTechnicalParameters(const QVector<QPair<QString, QString>>& rows);
    void enableControls();
    void tellRemarks(const BdfImporter& importer);

    std::unique_ptr<Ui::DataFileCenterBase> m_ui;
    QString m_fileName;
    bool m_valid = false;
    FileBrowserSettings m_settings;
};
