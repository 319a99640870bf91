#pragma once

#include "kirolabel.h"

#include <QVector>

/// The labels of a MultiPlot with their identifiers, in the order of adding.
///
/// Identifiers count from 1 and are never used again, neither after remove() nor after clear().
class LabelStore
{
public:
    unsigned add(const KiroLabel& label);
    /// A default label for an unknown identifier.
    KiroLabel label(unsigned id) const;
    /// False for an unknown identifier.
    bool remove(unsigned id);
    void clear() { m_entries.clear(); }
    QList<KiroLabel> list() const;

    /// The label of strip `plot`, or without strip, that is nearest to `seconds` and at most `tolerance`
    /// seconds away; of equally near ones the first added; 0 for none. What counts of a period is its nearer
    /// end; anywhere within it the period is found too, but only if nothing else is.
    unsigned findByTime(unsigned plot, double seconds, double tolerance) const;

private:
    struct Entry
    {
        unsigned id;
        KiroLabel label;
    };

    QVector<Entry> m_entries;
    unsigned m_lastId = 0;
};
