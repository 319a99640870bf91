#include "datafilecenterimpl.h"

#include "appconfig.h"
#include "bdfimporter.h"
#include "dialogprogress.h"
#include "filechoice.h"
#include "inistore.h"
#include "kiroreader.h"
#include "kiroutils.h"
#include "messages.h"
#include "modulewindow.h"
#include "openevents.h"
#include "palettecolours.h"
#include "plaintooltip.h"
#include "recordingrepair.h"
#include "recordingsummary.h"
#include "themedicon.h"
#include "windowgeometry.h"

#include "ui_datafilecenterbase.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDebug>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QRegularExpression>
#include <QShortcut>

namespace
{

bool isForImport(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == QLatin1String("bdf") || suffix == QLatin1String("edf") || suffix == QLatin1String("rec");
}

constexpr int RightAligned = Qt::AlignRight | Qt::AlignVCenter;

/// Of a column of the signal table.
int columnAlignment(int column)
{
    switch (column) {
    case RecordingSummary::ShortName:
    case RecordingSummary::SampleSize:
    case RecordingSummary::SampleType:
    case RecordingSummary::CalibrationUnit:
        return Qt::AlignCenter;
    case RecordingSummary::Frequency:
    case RecordingSummary::SamplesPerFrame:
    case RecordingSummary::CalibrationFactor:
    case RecordingSummary::CalibrationOffset:
        return RightAligned;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

/// A filter for file dialogs, which separate the patterns of one entry by blanks only.
QString withBlanks(QString filter)
{
    static const QRegularExpression betweenPatterns(QStringLiteral("(?<!;);(?=[^;()][^()]*\\))"));
    return filter.replace(betweenPatterns, QStringLiteral(" "));
}

} // namespace

DataFileCenter::DataFileCenter(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::DataFileCenterBase>())
{
    m_ui->setupUi(this);
    setAcceptDrops(true);
    setUpIcons();
    setUpTables();
    setUpShortcuts();
    muteText(*m_ui->labelHint);
    loadSettings();
    enableControls();
}

DataFileCenter::~DataFileCenter() = default;

void DataFileCenter::setUpIcons()
{
    const std::pair<QAbstractButton*, const char*> icons[] = {
        {m_ui->buttonOpen, "open"},          {m_ui->buttonImport, "import"},
        {m_ui->buttonSaveBinary, "save-as"}, {m_ui->buttonSaveAscii, "save-text"},
        {m_ui->buttonExport, "export"},      {m_ui->buttonFillGaps, "fill-gaps"},
        {m_ui->buttonProcess, "processing"}, {m_ui->buttonAnalysis, "analysis"},
        {m_ui->buttonClose, "close"},        {m_ui->buttonCopyParameters, "copy"}};
    for (const auto& [button, name] : icons)
        button->setIcon(themedIcon(QString::fromLatin1(name)));
    setWindowIcon(themedIcon(QStringLiteral("file-browser")));
}

void DataFileCenter::setUpTables()
{
    for (int i = 0; i < RecordingSummary::SignalColumnCount; ++i)
        m_ui->viewSignal->headerItem()->setTextAlignment(i, columnAlignment(i));
    m_ui->treeTechnicalParameters->headerItem()->setTextAlignment(1, RightAligned);
    // The table of signals gets the room; the texts below keep theirs.
    m_ui->splitterContent->setStretchFactor(0, 3);
    m_ui->splitterContent->setStretchFactor(1, 2);
    constexpr int WidthInLetters = 138;
    constexpr int HeightInLines = 36;
    const QFontMetrics metrics(font());
    resize(WidthInLetters * metrics.averageCharWidth(), HeightInLines * metrics.height());
}

void DataFileCenter::setUpShortcuts()
{
    connect(m_ui->buttonClose, &QAbstractButton::clicked, this, &QWidget::close);
    const auto onKey = [this](const QKeySequence& keys, auto&& action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    onKey(QKeySequence(QStringLiteral("Ctrl+O")), [this] { m_ui->buttonOpen->click(); });
    onKey(QKeySequence(QStringLiteral("Ctrl+I")), [this] { m_ui->buttonImport->click(); });
    addClosingShortcuts(this);
}

void DataFileCenter::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        muteText(*m_ui->labelHint);
}

void DataFileCenter::loadSettings()
{
    IniStore store;
    store.load(appConfig().configFile());
    QTreeWidget* const table = m_ui->viewSignal;
    for (int i = 0; i < table->columnCount(); ++i)
        m_settings.columnWidths.append(table->columnWidth(i));
    m_settings.load(store);
    for (int i = 0; i < table->columnCount(); ++i)
        table->setColumnWidth(i, m_settings.columnWidths[i]);
}

void DataFileCenter::closeEvent(QCloseEvent* event)
{
    for (int i = 0; i < m_settings.columnWidths.size(); ++i)
        m_settings.columnWidths[i] = m_ui->viewSignal->columnWidth(i);
    const QString section = FileBrowserSettings::section();
    replaceSection(appConfig().configFile(), section, [&](IniStore& store) {
        WindowGeometry::write(store, section, *this);
        m_settings.save(store);
    });
    event->accept();
}

void DataFileCenter::customEvent(QEvent* event)
{
    if (event->type() == OpenFileEvent::Number)
        take(static_cast<OpenFileEvent*>(event)->path());
}

void DataFileCenter::dragEnterEvent(QDragEnterEvent* event)
{
    acceptFile(*event);
}

void DataFileCenter::dropEvent(QDropEvent* event)
{
    openDropped(*this, *event);
}

void DataFileCenter::take(const QString& path)
{
    if (isForImport(path))
        importFile(path);
    else
        openFile(path);
}

void DataFileCenter::on_buttonOpen_clicked()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Select kiro data file"), startFolder(m_settings.openFolder),
        tr("Kiro data file (*.kiro)") + QStringLiteral(";;") + tr("All files (*.*)"));
    if (path.isEmpty())
        return;
    m_settings.openFolder = QFileInfo(path).path();
    openFile(path);
}

void DataFileCenter::on_buttonImport_clicked()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Select BDF/EDF file"), startFolder(m_settings.openFolder),
        withBlanks(tr("BDF/EDF file (*.bdf;*.edf;*.rec);;BioSemi Data File (*.bdf);;European Data File "
                      "(*.edf);;Recording file (*.rec);;All files (*.*)")));
    if (path.isEmpty())
        return;
    m_settings.openFolder = QFileInfo(path).path();
    importFile(path);
}

void DataFileCenter::openFile(const QString& path)
{
    KiroReader reader;
    if (!reader.setFile(path)) {
        showWarning(this, tr("Can't open file %1\n%2").arg(path, reader.errorText().toQString()));
        return;
    }
    m_valid = settleIntegrity(reader, path);
    reader.close();
    if (!reader.setFile(path)) {
        const QString message =
            QStringLiteral("DataFileCenter::onOpen() - can't open file \"%1\" after header correction!")
                .arg(path);
        KiroError::fatalError(message.toLocal8Bit().constData());
    }
    if (reader.header().frameCount() == 0) {
        showWarning(this, tr("The file does not contain any data!"));
        m_valid = false;
    }
    m_fileName = path;
    setWindowTitle(moduleTitle(tr("File browser"), path));
    showHeader(reader.header());
    enableControls();
}

/// Whether the file's frame count is right, or was put right at the user's wish.
bool DataFileCenter::settleIntegrity(KiroReader& reader, const QString& path)
{
    if (reader.checkIntegrity())
        return true;
    reader.close();
    if (!askWarning(this, tr("The file you are trying to open is the valid kiro data file, which seems to be "
                             "corrupted.\nWould you like the DataFileCenter to repair it?")))
        return false;
    if (!repairFile(path)) {
        showWarning(this, tr("Can't repair file \"%1\"!").arg(path));
        return false;
    }
    showInformation(this, tr("The corrupted file has been succesfully repaired!"));
    return true;
}

void DataFileCenter::showHeader(const KiroHeader& header)
{
    const RecordingSummary summary = RecordingSummary::of(header);
    m_ui->labelProgram->setText(summary.program);
    m_ui->labelProgram->setToolTip(plainToolTip(summary.program));
    m_ui->labelFileVersion->setText(summary.fileVersion);
    m_ui->labelCount->setText(summary.frameCount);
    m_ui->labelTotalTime->setText(summary.totalTime);
    m_ui->labelDate->setText(summary.date);
    m_ui->labelTime->setText(summary.time);
    m_ui->editNotes->setPlainText(summary.notes);
    fillTechnicalParameters(summary.technicalParameters);
    fillSignals(summary.signalRows);
    m_ui->stackContent->setCurrentWidget(m_ui->pageFile);
}

void DataFileCenter::fillTechnicalParameters(const QVector<QPair<QString, QString>>& rows)
{
    QTreeWidget* const table = m_ui->treeTechnicalParameters;
    table->clear();
    for (const auto& [name, value] : rows) {
        auto* const item = new QTreeWidgetItem(table, {name, value});
        item->setTextAlignment(1, RightAligned);
    }
    table->resizeColumnToContents(0);
    table->resizeColumnToContents(1);
    constexpr int GapPixels = 20;
    table->setColumnWidth(0, table->columnWidth(0) + GapPixels);
}

void DataFileCenter::fillSignals(const QVector<QStringList>& rows)
{
    QTreeWidget* const table = m_ui->viewSignal;
    table->clear();
    for (const QStringList& row : rows) {
        auto* const item = new QTreeWidgetItem(table, row);
        for (int i = 0; i < row.size(); ++i)
            item->setTextAlignment(i, columnAlignment(i));
    }
    for (int i = 0; i < table->columnCount(); ++i)
        table->resizeColumnToContents(i);
}

void DataFileCenter::enableControls()
{
    const bool shown = !m_fileName.isEmpty();
    for (QWidget* widget : {static_cast<QWidget*>(m_ui->viewSignal), static_cast<QWidget*>(m_ui->groupNotes),
                            static_cast<QWidget*>(m_ui->groupTechnicalParameters)})
        widget->setEnabled(shown);
    for (QToolButton* button : {m_ui->buttonSaveBinary, m_ui->buttonSaveAscii, m_ui->buttonExport,
                                m_ui->buttonFillGaps, m_ui->buttonProcess, m_ui->buttonAnalysis})
        button->setEnabled(shown && m_valid);
}

void DataFileCenter::on_buttonCopyParameters_clicked()
{
    const QTreeWidget* const table = m_ui->treeTechnicalParameters;
    if (table->topLevelItemCount() == 0)
        return;
    QString text;
    for (int i = 0; i < table->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* const item = table->topLevelItem(i);
        text += QStringLiteral("%1\t%2\n").arg(item->text(0), item->text(1));
    }
    QApplication::clipboard()->setText(text);
}

bool DataFileCenter::repairFile(QString path)
{
    const RepairResult result = repairRecording(path);
    if (result.outcome == RepairResult::Outcome::NoHeader)
        showWarning(this, tr("Failed to load data header from file %1").arg(path));
    if (!result.ok())
        qDebug().noquote() << result.logText;
    return result.ok();
}

void DataFileCenter::importFile(const QString& path)
{
    BdfImporter importer;
    if (!importer.load(path)) {
        showWarning(this, importer.errorText());
        return;
    }
    const QFileInfo source(path);
    const QString destination =
        source.path() + QLatin1Char('/') + source.completeBaseName() + QStringLiteral(".kiro");
    bool converted = false;
    {
        DialogProgress progress(this, tr("Importing %1").arg(source.fileName()));
        converted = importer.convert(destination, 0, -1, progress);
    }
    if (importer.wasCancelled())
        return;
    if (!converted) {
        showWarning(this, importer.errorText());
        return;
    }
    tellRemarks(importer);
    openFile(destination);
}

/// What the recording does not say of the file that it was made from: to the log line by line, and to the
/// user.
void DataFileCenter::tellRemarks(const BdfImporter& importer)
{
    QStringList lines;
    for (const BdfRemark& remark : importer.remarks())
        lines << remark.text;
    for (const QString& line : lines)
        qWarning().noquote() << line;
    if (!lines.isEmpty())
        showInformation(this, lines.join(QStringLiteral("\n\n")));
}
