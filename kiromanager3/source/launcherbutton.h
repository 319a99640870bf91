#pragma once

#include <QPushButton>

/// A push button that stands in a column of others: icon and text begin at its leading edge.
class LauncherButton : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int margin() const;
};
