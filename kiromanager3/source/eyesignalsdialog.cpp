#include "eyesignalsdialog.h"

#include "kiroheader.h"
#include "selectsignals.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QCoreApplication>

namespace
{

QString translated(const char* text)
{
    return QCoreApplication::translate("EyeSignalsDialog", text);
}

/// In the order of EyeAxes.
constexpr const char* RoleTexts[EyeAxisCount] = {
    QT_TRANSLATE_NOOP("EyeSignalsDialog", "Select right eye horizontal movement (default)"),
    QT_TRANSLATE_NOOP("EyeSignalsDialog", "Select right eye vertical movement"),
    QT_TRANSLATE_NOOP("EyeSignalsDialog", "Select left eye horizontal movement"),
    QT_TRANSLATE_NOOP("EyeSignalsDialog", "Select left eye vertical movement")};

QStringList namesOf(const KiroHeader& header)
{
    QStringList names(translated(QT_TRANSLATE_NOOP("EyeSignalsDialog", "no signal selected")));
    for (const KiroSignal& descriptor : header.signalTable())
        names << descriptor.fullName.toQString();
    return names;
}

QCheckBox* addDoNotAsk(SelectSignals& dialog)
{
    auto* const box = new QCheckBox(translated(QT_TRANSLATE_NOOP(
        "EyeSignalsDialog", "do not ask for signals selection confirmation (can be changed in options)")));
    box->setObjectName(QStringLiteral("checkDoNotAsk"));
    auto* const layout = static_cast<QBoxLayout*>(dialog.layout());
    layout->insertWidget(layout->count() - 1, box);
    return box;
}

} // namespace

std::optional<EyeSignals> askForEyeSignals(QWidget* parent, const KiroHeader& header,
                                           const EyeSignals& proposed, bool& askAgain)
{
    SelectSignals dialog(parent);
    dialog.setInfoText(
        translated(QT_TRANSLATE_NOOP("EyeSignalsDialog", "Please confirm or change the signals selection")));
    const QStringList names = namesOf(header);
    for (int i = 0; i < EyeAxisCount; ++i)
        dialog.addRole(translated(RoleTexts[i]), names, proposed[EyeAxes[std::size_t(i)]].signalIndex + 1);
    const QCheckBox* const doNotAsk = askAgain ? addDoNotAsk(dialog) : nullptr;
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    if (doNotAsk && doNotAsk->isChecked())
        askAgain = false;
    EyeSignals chosen;
    for (int i = 0; i < EyeAxisCount; ++i)
        chosen[EyeAxes[std::size_t(i)]].signalIndex = dialog.selected(i) - 1;
    return chosen;
}
