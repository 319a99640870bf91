#include "templatebuttons.h"

#include "plaintooltip.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QPainter>
#include <QPixmap>
#include <QTextDocument>

namespace
{

constexpr QSize PictureSize(22, 22);
constexpr QRect ColorSquare(2, 2, 19, 19);

} // namespace

QPixmap templatePixmap(const QColor& color, qreal ratio)
{
    QPixmap pixmap(PictureSize * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::black);
    QPainter painter(&pixmap);
    painter.fillRect(ColorSquare, color);
    return pixmap;
}

void fillTemplateButtons(const QList<QAbstractButton*>& buttons, const QList<LabelTemplate>& templates)
{
    for (int i = 0; i < buttons.size(); ++i) {
        QAbstractButton* const button = buttons[i];
        const bool isUsed = i < templates.size();
        const LabelTemplate shown = templates.value(i);
        button->setEnabled(isUsed);
        button->setIconSize(PictureSize);
        button->setIcon(isUsed ? QIcon(templatePixmap(shown.labelColor, button->devicePixelRatioF()))
                               : QIcon());
        button->setToolTip(plainToolTip(shown.templateName));
        button->setAccessibleName(isUsed
                                      ? shown.templateName
                                      : QCoreApplication::translate("TemplateButtons", "No label template"));
    }
}

void fillTemplateBox(QComboBox& box, const QList<LabelTemplate>& templates)
{
    box.clear();
    box.addItem(QString());
    for (const LabelTemplate& each : templates)
        box.addItem(each.templateName);
    box.setCurrentIndex(0);
}
