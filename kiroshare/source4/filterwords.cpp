#include "filterwords.h"

#include <algorithm>

FilterWords::FilterWords(const QString& line)
    : m_words(line.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts))
{
}

bool FilterWords::areIn(const QStringList& texts) const
{
    const auto stands = [&texts](const QString& word) {
        return std::any_of(texts.begin(), texts.end(),
                           [&word](const QString& text) { return text.contains(word, Qt::CaseInsensitive); });
    };
    return std::all_of(m_words.begin(), m_words.end(), stands);
}
