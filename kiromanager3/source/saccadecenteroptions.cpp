#include "saccadecenteroptions.h"

#include "appconfig.h"
#include "inistore.h"
#include "pensetupdialog.h"
#include "separatordlg.h"
#include "settingsedit.h"
#include "windowgeometry.h"

#include "ui_saccadecenteroptionsbase.h"

#include <QColorDialog>
#include <QFontDialog>
#include <QPainter>

namespace
{

struct FlagField
{
    QAbstractButton* button;
    bool* flag;
};

/// All check boxes, and those radio buttons that are on for true.
std::array<FlagField, 16> flagFields(const Ui::SaccadeCenterOptionsBase& ui, SaccadeCenterSettings& settings)
{
    SaccadeTextExport& text = settings.text;
    SaccadeSampleExport& samples = settings.samples;
    return {{{ui.checkAskForSignals, &settings.askForSignals},
             {ui.checkCustomPrintScheme, &settings.ownPrintLook},
             {ui.checkIncludeTitle, &text.includeTitle},
             {ui.checkIncludeFile, &text.includeFile},
             {ui.checkIncludeFrequency, &text.includeFrequency},
             {ui.checkIncludeFields, &text.includeFields},
             {ui.radioLabelsOnSignal, &settings.labels.onSignal},
             {ui.radioExportKiroEyeComment, &settings.indexes.commentNamesRecording},
             {ui.checkSamplesArbitraryUnits, &samples.arbitraryUnits},
             {ui.checkSamplesCalibFactor, &samples.calibFactor},
             {ui.checkSamplesCalibUnit, &samples.calibUnit},
             {ui.checkSamplesFrequency, &samples.frequency},
             {ui.checkSamplesIndex, &samples.index},
             {ui.checkSamplesDirection, &samples.direction},
             {ui.checkSamplesOffset, &samples.offset},
             {ui.checkSamplesInvert, &samples.invert}}};
}

} // namespace

SaccadeCenterOptions::SaccadeCenterOptions(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::SaccadeCenterOptionsBase>())
{
    m_ui->setupUi(this);
    for (QSpinBox* spin : {m_ui->spinExportWindow, m_ui->spinExportUpdate})
        spin->setRange(1, SaccadeIndexExport::MostMs);
    for (QSpinBox* spin : {m_ui->spinScreenshotWidth, m_ui->spinScreenshotHeight})
        spin->setRange(SaccadeCenterSettings::ScreenshotLeastPixels,
                       SaccadeCenterSettings::ScreenshotMostPixels);
    for (const ColorField& field : colors())
        connect(field.button, &QPushButton::clicked, this, [this, field] { editColor(field); });
    for (const LookFields& fields : looks()) {
        connect(fields.font, &QPushButton::clicked, this, [this, fields] { editFont(fields); });
        for (const PenField& field : fields.pens)
            field.preview->setFixedHeight(field.button->sizeHint().height());
    }
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
    setSettings(SaccadeCenterSettings());
}

SaccadeCenterOptions::~SaccadeCenterOptions() = default;

QString SaccadeCenterOptions::section()
{
    return QStringLiteral("SACCADE_CENTER_OPTIONS");
}

bool SaccadeCenterOptions::edit(QWidget* parent, SaccadeCenterSettings& settings)
{
    SaccadeCenterOptions dialog(parent);
    dialog.setSettings(settings);
    dialog.adjustSize();
    const QString file = appConfig().configFile();
    IniStore store;
    store.load(file);
    WindowGeometry::read(store, section(), dialog).place(dialog);
    const bool accepted = dialog.exec() == Accepted;
    editSection(file, section(), [&](IniStore& kept) { WindowGeometry::write(kept, section(), dialog); });
    if (accepted)
        settings = dialog.settings();
    return accepted;
}

void SaccadeCenterOptions::setSettings(const SaccadeCenterSettings& settings)
{
    m_settings = settings;
    m_edited = settings;
    showSimpleFields();
    showChosen();
}

std::array<SaccadeCenterOptions::LookFields, 2> SaccadeCenterOptions::looks()
{
    SaccadePlotLook& plot = m_edited.plot;
    SaccadePlotLook& print = m_edited.print;
    return {{{&plot,
              m_ui->buttonFont,
              {{{m_ui->buttonEyeSignal, m_ui->previewEyeSignal, &plot.eyeSignal},
                {m_ui->buttonSaccLeft, m_ui->previewSaccLeft, &plot.saccadeLeft},
                {m_ui->buttonSaccRight, m_ui->previewSaccRight, &plot.saccadeRight},
                {m_ui->buttonSaccSelected, m_ui->previewSaccSelected, &plot.saccadeSelected},
                {m_ui->buttonBlinks, m_ui->previewBlinks, &plot.blinks}}}},
             {&print,
              m_ui->buttonPrintFont,
              {{{m_ui->buttonPrintEyeSignal, m_ui->previewPrintEyeSignal, &print.eyeSignal},
                {m_ui->buttonPrintSaccLeft, m_ui->previewPrintSaccLeft, &print.saccadeLeft},
                {m_ui->buttonPrintSaccRight, m_ui->previewPrintSaccRight, &print.saccadeRight},
                {m_ui->buttonPrintSaccSelected, m_ui->previewPrintSaccSelected, &print.saccadeSelected},
                {m_ui->buttonPrintBlinks, m_ui->previewPrintBlinks, &print.blinks}}}}}};
}

std::array<SaccadeCenterOptions::ColorField, 8> SaccadeCenterOptions::colors()
{
    return {{{m_ui->buttonBackground, &m_edited.plot.background},
             {m_ui->buttonForeground, &m_edited.plot.foreground},
             {m_ui->buttonGrid, &m_edited.plot.grid},
             {m_ui->buttonPrintBackground, &m_edited.print.background},
             {m_ui->buttonPrintForeground, &m_edited.print.foreground},
             {m_ui->buttonPrintGrid, &m_edited.print.grid},
             {m_ui->buttonLabelsColor, &m_edited.labels.saccadeColor},
             {m_ui->buttonBlinkLabelsColor, &m_edited.labels.blinkColor}}};
}

/// What the widgets themselves hold.
void SaccadeCenterOptions::showSimpleFields()
{
    for (const FlagField& field : flagFields(*m_ui, m_edited))
        field.button->setChecked(*field.flag);
    m_ui->radioLabelsOnTime->setChecked(!m_edited.labels.onSignal);
    m_ui->radioExportKiroSaccComment->setChecked(!m_edited.indexes.commentNamesRecording);
    m_ui->comboTimeUnits->setCurrentIndex(int(m_edited.timeUnits));
    m_ui->spinExportWindow->setValue(m_edited.indexes.windowMs);
    m_ui->spinExportUpdate->setValue(m_edited.indexes.updateMs);
    m_ui->spinScreenshotWidth->setValue(m_edited.screenshotSize.width());
    m_ui->spinScreenshotHeight->setValue(m_edited.screenshotSize.height());
    m_ui->comboScreenshotFormat->setCurrentText(m_edited.screenshotFormat);
}

void SaccadeCenterOptions::readSimpleFields()
{
    for (const FlagField& field : flagFields(*m_ui, m_edited))
        *field.flag = field.button->isChecked();
    m_edited.timeUnits = TimeUnit(m_ui->comboTimeUnits->currentIndex());
    m_edited.indexes.windowMs = m_ui->spinExportWindow->value();
    m_edited.indexes.updateMs = m_ui->spinExportUpdate->value();
    m_edited.screenshotSize = {m_ui->spinScreenshotWidth->value(), m_ui->spinScreenshotHeight->value()};
    m_edited.screenshotFormat = m_ui->comboScreenshotFormat->currentText();
}

/// What is chosen in dialogs, on their buttons.
void SaccadeCenterOptions::showChosen()
{
    for (const ColorField& field : colors()) {
        field.button->setIcon(patchOf(*field.color, field.button->iconSize()));
        field.button->setText(field.color->name());
    }
    for (const LookFields& fields : looks())
        showLook(fields);
    const QString name = SeparatorDlg::separatorName(m_edited.text.separator);
    // A name of blanks would look like none.
    showOnButton(*m_ui->buttonSeparator,
                 name.trimmed().isEmpty() ? QLatin1Char('"') + name + QLatin1Char('"') : name);
}

void SaccadeCenterOptions::showLook(const LookFields& fields)
{
    const QFont& font = fields.look->font;
    const QString size = font.pointSizeF() > 0.0 ? tr("%1 pt").arg(locale().toString(font.pointSizeF()))
                                                 : tr("%1 px").arg(font.pixelSize());
    showOnButton(*fields.font, font.family() + QStringLiteral(", ") + size);
    for (const PenField& field : fields.pens) {
        field.button->setText(tr("%1, width %2").arg(field.pen->color().name()).arg(field.pen->width()));
        field.preview->setPen(*field.pen);
        field.preview->setBackground(fields.look->background);
    }
}

/// Names and separators are as long as they like and may hold the mark of a mnemonic.
void SaccadeCenterOptions::showOnButton(QPushButton& button, const QString& text) const
{
    constexpr int MostLetters = 24;
    const QFontMetrics metrics = button.fontMetrics();
    const int width = MostLetters * metrics.averageCharWidth();
    QString shown = metrics.elidedText(text.left(4 * MostLetters), Qt::ElideRight, width);
    button.setText(shown.replace(QLatin1Char('&'), QStringLiteral("&&")));
}

/// The colour in a frame, which sets it off from a button of the same colour.
QIcon SaccadeCenterOptions::patchOf(const QColor& color, const QSize& size) const
{
    QPixmap patch(size * devicePixelRatioF());
    patch.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&patch);
    painter.fillRect(QRect(QPoint(), size), palette().color(QPalette::ButtonText));
    painter.fillRect(QRect(QPoint(), size).adjusted(1, 1, -1, -1), color);
    return QIcon(patch);
}

void SaccadeCenterOptions::editPen(const SaccadePlotLook& look, QPen& pen)
{
    pen = PenSetupDialog::getPen(this, pen, look.background);
    showChosen();
}

void SaccadeCenterOptions::editFont(const LookFields& fields)
{
    bool chosen = false;
    const QFont font = QFontDialog::getFont(&chosen, fields.look->font, this, fields.font->accessibleName());
    if (!chosen)
        return;
    fields.look->font = font;
    showChosen();
}

void SaccadeCenterOptions::editColor(const ColorField& field)
{
    const QColor color = QColorDialog::getColor(*field.color, this, field.button->accessibleName());
    if (!color.isValid())
        return;
    *field.color = color;
    showChosen();
}

void SaccadeCenterOptions::on_buttonBox_accepted()
{
    readSimpleFields();
    m_settings = m_edited;
    accept();
}

void SaccadeCenterOptions::on_buttonEyeSignal_clicked()
{
    editPen(m_edited.plot, m_edited.plot.eyeSignal);
}

void SaccadeCenterOptions::on_buttonSaccLeft_clicked()
{
    editPen(m_edited.plot, m_edited.plot.saccadeLeft);
}

void SaccadeCenterOptions::on_buttonSaccRight_clicked()
{
    editPen(m_edited.plot, m_edited.plot.saccadeRight);
}

void SaccadeCenterOptions::on_buttonSaccSelected_clicked()
{
    editPen(m_edited.plot, m_edited.plot.saccadeSelected);
}

void SaccadeCenterOptions::on_buttonBlinks_clicked()
{
    editPen(m_edited.plot, m_edited.plot.blinks);
}

void SaccadeCenterOptions::on_buttonPrintEyeSignal_clicked()
{
    editPen(m_edited.print, m_edited.print.eyeSignal);
}

void SaccadeCenterOptions::on_buttonPrintSaccLeft_clicked()
{
    editPen(m_edited.print, m_edited.print.saccadeLeft);
}

void SaccadeCenterOptions::on_buttonPrintSaccRight_clicked()
{
    editPen(m_edited.print, m_edited.print.saccadeRight);
}

void SaccadeCenterOptions::on_buttonPrintSaccSelected_clicked()
{
    editPen(m_edited.print, m_edited.print.saccadeSelected);
}

void SaccadeCenterOptions::on_buttonPrintBlinks_clicked()
{
    editPen(m_edited.print, m_edited.print.blinks);
}

void SaccadeCenterOptions::on_buttonSeparator_clicked()
{
    SeparatorDlg dialog(this);
    dialog.setSeparator(m_edited.text.separator);
    if (dialog.exec() != Accepted)
        return;
    m_edited.text.separator = dialog.separator();
    showChosen();
}
