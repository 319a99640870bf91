#include "textlines.h"

#include <algorithm>

namespace
{

constexpr QChar Ellipsis(0x2026);

bool mayBreakAt(const QString& text, int place)
{
    return text[place] == QLatin1Char(' ') || text[place - 1] == QLatin1Char('_');
}

/// The last place before `end` where a line may be broken, 0 if there is none.
int breakBefore(const QString& text, int end)
{
    int place = end - 1;
    while (place > 0 && !mayBreakAt(text, place))
        --place;
    return std::max(place, 0);
}

/// The first place where a line may be broken, or the end.
int firstBreak(const QString& text)
{
    int place = 1;
    while (place < text.size() && !mayBreakAt(text, place))
        ++place;
    return place;
}

} // namespace

QStringList textLines(const QString& text, double width, int mostLines, const QFontMetricsF& metrics)
{
    QStringList lines;
    QString rest = text.simplified();
    while (!rest.isEmpty() && lines.size() < mostLines) {
        const bool last = lines.size() == mostLines - 1;
        int end = rest.size();
        while (!last && end > 0 && metrics.horizontalAdvance(rest.left(end)) > width)
            end = breakBefore(rest, end);
        // Of a word that is too long both ends say more than its beginning.
        const Qt::TextElideMode cut = end > 0 ? Qt::ElideRight : Qt::ElideMiddle;
        if (end == 0)
            end = firstBreak(rest);
        const QString line = metrics.elidedText(rest.left(end), cut, width);
        // An ellipsis alone says nothing.
        if (line.isEmpty() || line == QString(Ellipsis))
            return lines;
        lines.append(line);
        rest = rest.mid(end).trimmed();
    }
    return lines;
}
