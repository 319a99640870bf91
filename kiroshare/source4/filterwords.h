#pragma once

#include <QStringList>

/// The words that a user has typed into a filter line.
class FilterWords
{
public:
    explicit FilterWords(const QString& line = QString());

    /// Whether each word stands in one of the texts, whatever its case; always so without words.
    bool areIn(const QStringList& texts) const;

private:
    QStringList m_words;
};
