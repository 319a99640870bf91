#pragma once

#include <QColor>
#include <QFrame>
#include <QPen>

/// Shows how a pen draws on a background.
class PreviewFrame : public QFrame
{
    Q_OBJECT

public:
    /// A black solid pen of width 0 with flat caps and bevelled joins, on white.
    explicit PreviewFrame(QWidget* parent = nullptr);

    const QPen& pen() const { return m_pen; }
    void setPen(const QPen& pen);
    const QColor& background() const { return m_background; }
    void setBackground(const QColor& background);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPen m_pen;
    QColor m_background = Qt::white;
};
