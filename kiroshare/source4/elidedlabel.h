#pragma once

#include <QLabel>

/// A label of one line of plain text that takes the room there is: where the text is longer its middle is
/// left out, so that a path keeps its file name, and the tooltip has the whole. text() is always the whole.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString shownText() const;
};
