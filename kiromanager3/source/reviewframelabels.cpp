// The labels of a signals browser: made with the mouse, edited, kept in files.

#include "reviewframeimpl.h"

#include "filechoice.h"
#include "kirolabeldlg.h"
#include "messages.h"
#include "multiplot.h"

#include "ui_reviewframebase.h"

#include <QFileDialog>
#include <QFileInfo>

namespace
{

QString labelFilter()
{
    return ReviewFrame::tr("Kiro labels file (*.lab)");
}

QString labelFilters()
{
    return labelFilter() + QStringLiteral(";;") + ReviewFrame::tr("All files (*.*)");
}

} // namespace

void ReviewFrame::takeLabels(const QList<KiroLabel>& labels)
{
    m_plots->clearAllLabels();
    for (const KiroLabel& label : labels)
        m_plots->addLabel(label);
    forgetFoundLabels();
    m_plots->redraw(true);
}

void ReviewFrame::changeLabels(const QString& text, const std::function<void()>& change)
{
    const QList<KiroLabel> before = m_plots->labelsList();
    change();
    forgetFoundLabels();
    m_plots->redraw(true);
    m_labelHistory.note(text, before, m_plots->labelsList());
}

/// The value of a label as its strip draws it, as dialogs show it.
void ReviewFrame::toDrawn(KiroLabel& label) const
{
    const Plot* const strip = m_plots->plot(int(label.signal));
    if (label.hasValue() && strip)
        label.value = strip->drawnValue(label.value);
}

/// The value of a label as it is kept.
void ReviewFrame::toRaw(KiroLabel& label) const
{
    const Plot* const strip = m_plots->plot(int(label.signal));
    if (label.hasValue() && strip)
        label.value = strip->rawValue(label.value);
}

/// Has the user edit a label, whose value is in the units of its strip. False if the user cancels.
bool ReviewFrame::editLabel(KiroLabel& label)
{
    QStringList units;
    for (const KiroSignal& descriptor : m_recording.signalDescriptors)
        units << (descriptor.calibrated ? descriptor.calibrationUnit.toQString() : QString());
    KiroLabelDlg dialog(this);
    dialog.setData(signalNames(), units, m_recording.totalSeconds, label, m_settings.labels.templates());
    const bool accepted = dialog.exec() == QDialog::Accepted;
    m_settings.labels.setTemplates(dialog.templates());
    if (accepted)
        label = dialog.label();
    return accepted;
}

/// Adds a label, whose value is in the units of its strip, once the user has edited it.
void ReviewFrame::makeLabel(KiroLabel label)
{
    if (!editLabel(label))
        return;
    toRaw(label);
    changeLabels(tr("Add label", "undo"), [&] { m_plots->addLabel(label); });
    m_settings.labels.remember(label.name(), label.description(), label.color);
}

void ReviewFrame::onEditLabel()
{
    if (m_contextLabel == 0)
        return;
    const unsigned id = m_contextLabel;
    KiroLabel label = m_plots->label(id);
    toDrawn(label);
    if (!editLabel(label))
        return;
    toRaw(label);
    changeLabels(tr("Edit label", "undo"), [&] {
        m_plots->removeLabel(id);
        m_plots->addLabel(label);
    });
}

void ReviewFrame::onDeleteLabel()
{
    if (m_contextLabel == 0)
        return;
    changeLabels(tr("Delete label", "undo"), [this] { m_plots->removeLabel(m_contextLabel); });
}

/// The labels of a file that the user chooses; none, with `path` as it was, if the user chooses none or there
/// are none, which is told.
QList<KiroLabel> ReviewFrame::chooseLabels(QString& path)
{
    const QString chosen = QFileDialog::getOpenFileName(this, tr("Select Kiro labels file"),
                                                        startFolder(m_settings.lastDir), labelFilters());
    if (chosen.isEmpty())
        return {};
    const QList<KiroLabel> labels = KiroLabel::load(chosen);
    if (labels.isEmpty())
        showWarning(this, tr("Failed to load labels from file %1").arg(chosen));
    else
        path = chosen;
    return labels;
}

void ReviewFrame::onLoadMarkers()
{
    if (!settleUnsaved())
        return;
    const QList<KiroLabel> labels = chooseLabels(m_lastLabelFile);
    if (labels.isEmpty())
        return;
    m_addedLabels = false;
    takeLabels(labels);
    m_labelHistory.restart(true);
}

void ReviewFrame::onAddMarkers()
{
    const QList<KiroLabel> labels = chooseLabels(m_lastLabelFile);
    if (labels.isEmpty())
        return;
    // Labels of one file alone are stored in it.
    const bool hadLabels = !m_plots->labelsList().isEmpty() || m_labelHistory.hasChanges();
    m_addedLabels = hadLabels;
    changeLabels(tr("Add labels", "undo"), [&] {
        for (const KiroLabel& label : labels)
            m_plots->addLabel(label);
    });
    if (!hadLabels)
        m_labelHistory.restart(true);
}

void ReviewFrame::onSaveMarkers()
{
    if (m_lastLabelFile.isEmpty())
        onSaveMarkersAs();
    else
        saveLabels(m_lastLabelFile);
}

void ReviewFrame::onSaveMarkersAs()
{
    const QString proposed = m_lastLabelFile.isEmpty() ? startFolder(m_settings.lastDir) : m_lastLabelFile;
    QString filter = labelFilter();
    const QString chosen =
        QFileDialog::getSaveFileName(this, tr("Select destination file"), proposed, labelFilters(), &filter,
                                     QFileDialog::DontConfirmOverwrite);
    if (chosen.isEmpty())
        return;
    const QString path = filter == labelFilter() ? withSuffix(chosen, QStringLiteral("lab")) : chosen;
    if (QFileInfo::exists(path) &&
        !askWarning(this, tr("The file %1 already exists! Would you like to overwrite it?")
                              .arg(QFileInfo(path).fileName())))
        return;
    saveLabels(path);
}

bool ReviewFrame::saveLabels(const QString& path)
{
    if (!KiroLabel::save(path, m_plots->labelsList())) {
        showWarning(this, tr("Failed to save labels to the file %1").arg(path));
        return false;
    }
    m_lastLabelFile = path;
    m_addedLabels = false;
    m_labelHistory.setStored();
    return true;
}

void ReviewFrame::onNewMarkers()
{
    if (!askWarning(this, tr("This operation will remove all current labels! Would you like to continue?")))
        return;
    takeLabels({});
    m_lastLabelFile.clear();
    m_labelHistory.restart(true);
}
