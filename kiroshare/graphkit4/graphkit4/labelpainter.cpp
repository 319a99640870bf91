#include "labelpainter.h"

#include "labellayout.h"
#include "striprule.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

constexpr double MsOfSecond = 1000.0;
constexpr int BandAlpha = 38;
constexpr int NameAlpha = 225;
/// Width of the bar of colour beside a name, as a part of the height of a line.
constexpr double BarPart = 0.17;
/// Names take at most this part of a strip's width, and so many digits.
constexpr double MostOfWidth = 0.3;
constexpr int MostDigits = 28;

} // namespace

LabelPainter::LabelPainter(const StripLayout& layout, const StripLook& look, const std::vector<Plot>& plots,
                           const QList<KiroLabel>& labels)
    : m_layout(layout)
    , m_look(look)
    , m_plots(plots)
{
    const TimeAxis& axis = layout.timeAxis();
    if (layout.strips().isEmpty() || !axis.isUsable())
        return;
    for (const KiroLabel& label : labels) {
        const StripBox* const box =
            label.hasSignal() ? layout.boxOf(label.signalSignedInt()) : &layout.strips().first();
        const double start = label.time / MsOfSecond;
        const double end = label.hasEnd() ? label.endTime / MsOfSecond : start;
        const bool isInSight = std::max(start, end) >= axis.min && std::min(start, end) <= axis.max;
        if (box != nullptr && isInSight)
            m_shown.push_back(
                {&label, box, layout.xAt(std::min(start, end)), layout.xAt(std::max(start, end))});
    }
}

QColor LabelPainter::colorOf(const KiroLabel& label) const
{
    return label.color.isValid() ? label.color : m_look.scheme().marker().color();
}

QRectF LabelPainter::extent(const Shown& shown) const
{
    const QRectF area = shown.label->hasSignal() ? shown.box->rect : m_layout.plotArea();
    QRectF band(QPointF(shown.from, area.top()), QPointF(shown.to, area.bottom()));
    band.setLeft(std::max(band.left(), area.left()));
    band.setRight(std::min(band.right(), area.right()));
    return band;
}

double LabelPainter::pointHeight(const Shown& shown) const
{
    const Plot& plot = m_plots[static_cast<std::size_t>(shown.box->plot)];
    const double y = m_layout.yAt(*shown.box, plot.drawnValue(shown.label->value));
    return std::clamp(y, shown.box->rect.top(), shown.box->rect.bottom());
}

double LabelPainter::pointRadius() const
{
    return m_layout.tickLength() * 0.75;
}

void LabelPainter::drawBands(QPainter& painter) const
{
    for (const Shown& shown : m_shown) {
        if (!shown.label->hasEnd())
            continue;
        QColor color = colorOf(*shown.label);
        color.setAlpha(BandAlpha);
        painter.fillRect(extent(shown), color);
    }
}

void LabelPainter::drawMarks(QPainter& painter) const
{
    painter.save();
    painter.setClipRect(m_layout.plotArea(), Qt::IntersectClip);
    drawLines(painter);
    for (const StripBox& box : m_layout.strips())
        drawNames(painter, box);
    drawPoints(painter);
    painter.restore();
}

void LabelPainter::drawLines(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const Shown& shown : m_shown) {
        if (shown.label->type == KiroLabel::Point)
            continue;
        QPen pen = m_look.pen(m_look.scheme().marker());
        pen.setColor(colorOf(*shown.label));
        painter.setPen(pen);
        const QRectF area = shown.label->hasSignal() ? shown.box->rect : m_layout.plotArea();
        drawRule(painter, QLineF(std::round(shown.from), area.top(), std::round(shown.from), area.bottom()));
        if (shown.label->hasEnd())
            drawRule(painter, QLineF(std::round(shown.to), area.top(), std::round(shown.to), area.bottom()));
    }
}

void LabelPainter::drawPoints(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing, true);
    const double radius = pointRadius();
    for (const Shown& shown : m_shown) {
        if (shown.label->type != KiroLabel::Point)
            continue;
        painter.setPen(QPen(m_look.background(), m_look.pixels(1.5)));
        painter.setBrush(colorOf(*shown.label));
        painter.drawEllipse(QPointF(shown.from, pointHeight(shown)), radius, radius);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void LabelPainter::drawNames(QPainter& painter, const StripBox& box) const
{
    const QFontMetricsF& metrics = m_look.metrics();
    const double bar = std::round(metrics.height() * BarPart);
    const double padding = std::round(metrics.height() * 0.2);
    const double mostWidth =
        std::min(box.rect.width() * MostOfWidth, metrics.horizontalAdvance(QLatin1Char('0')) * MostDigits);
    QVector<LabelText> texts;
    QStringList names;
    std::vector<const Shown*> owners;
    QVector<LabelDot> dots;
    for (const Shown& shown : m_shown) {
        if (shown.box == &box && shown.label->type == KiroLabel::Point)
            dots.append({shown.from, pointHeight(shown), pointRadius()});
        const QString name = shown.box == &box ? shown.label->name().simplified() : QString();
        if (name.isEmpty())
            continue;
        names.append(metrics.elidedText(name, Qt::ElideRight, mostWidth));
        const double width = std::ceil(metrics.horizontalAdvance(names.last())) + bar + 2.0 * padding;
        const bool isPoint = shown.label->type == KiroLabel::Point;
        LabelText text{shown.from, box.rect.top(), width};
        if (isPoint) {
            text.y = pointHeight(shown) - metrics.height() / 2.0;
            text.mostRowsAway = 1;
        }
        texts.append(text);
        owners.push_back(&shown);
    }
    const double rowHeight = std::min(std::ceil(metrics.height()), box.rect.height());
    if (rowHeight < metrics.capHeight() + 2.0)
        return;
    const QVector<QRectF> places = placeLabelTexts(texts, dots, box.rect.adjusted(0.0, 1.0, 0.0, 0.0),
                                                   rowHeight - 1.0, m_layout.tickLength() * 0.8);
    for (int i = 0; i < places.size(); ++i) {
        if (places[i].isNull())
            continue;
        // The text is in the colour of all texts, to be legible whatever colour the label has.
        const QRectF plate = places[i].adjusted(0.0, 0.0, 0.0, -1.0);
        QColor background = m_look.background();
        background.setAlpha(NameAlpha);
        painter.fillRect(plate, background);
        const QColor color = colorOf(*owners[static_cast<std::size_t>(i)]->label);
        painter.fillRect(QRectF(plate.topLeft(), QSizeF(bar, plate.height())), color);
        painter.setPen(m_look.text());
        painter.drawText(plate.adjusted(bar + padding, 0.0, 0.0, 0.0),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, names[i]);
    }
}
