#include "positionselectoraccess.h"

#include "positionselector.h"

namespace
{

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String("PositionSelector"))
        return nullptr;
    auto* selector = qobject_cast<PositionSelector*>(object);
    return selector ? new PositionSelectorAccess(selector) : nullptr;
}

} // namespace

PositionSelectorAccess::PositionSelectorAccess(PositionSelector* selector)
    : QAccessibleWidget(selector, QAccessible::Slider)
{
}

void PositionSelectorAccess::install()
{
    QAccessible::installFactory(makeInterface);
}

QString PositionSelectorAccess::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? selector()->windowText() : QAccessibleWidget::text(kind);
}

void* PositionSelectorAccess::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant PositionSelectorAccess::currentValue() const
{
    return selector()->selectorPosition();
}

void PositionSelectorAccess::setCurrentValue(const QVariant& value)
{
    const double before = selector()->selectorPosition();
    selector()->setSelectorPosition(value.toDouble());
    const double now = selector()->selectorPosition();
    if (now != before)
        emit selector()->selectorPositionChange(now);
}

QVariant PositionSelectorAccess::maximumValue() const
{
    return selector()->totalTo() - selector()->selectorRange() * 0.5;
}

QVariant PositionSelectorAccess::minimumValue() const
{
    return selector()->totalFrom() + selector()->selectorRange() * 0.5;
}

QVariant PositionSelectorAccess::minimumStepSize() const
{
    return selector()->stepSize();
}

PositionSelector* PositionSelectorAccess::selector() const
{
    return static_cast<PositionSelector*>(widget());
}
