#pragma once

#include <QAccessibleWidget>

class PositionSelector;

/// A PositionSelector as screen readers see it: a slider whose value is the centre of the window.
class PositionSelectorAccess : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit PositionSelectorAccess(PositionSelector* selector);

    /// Makes the interface known; further calls do nothing.
    static void install();

    QString text(QAccessible::Text kind) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    /// Moves the window as a step does.
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    PositionSelector* selector() const;
};
