#pragma once

#include "multiplotscheme.h"

#include <QList>
#include <QString>

class IniStore;

/// Where a section keeps the parts of a scheme; a part without a key is not kept.
struct SchemeKeys
{
    QString font;
    QString bkg;
    QString frg;
    QString data;
    QString grid;
    QString marker;
    QString pointer;
    QString drawStyle;
    QString horzGrid;
    QString vertGrid;
    QString horzUnitType;
    QString horzTimeStyle;
};

/// Takes what the section holds and what can be: fonts up to 512 points or pixels, pens up to 99 wide and not
/// dashed in a way of their own, texts that MultiPlotScheme knows. The other parts keep their value.
void readScheme(const IniStore& store, const QString& section, const SchemeKeys& keys,
                MultiPlotScheme& scheme);
/// Into the section, which must exist.
void writeScheme(IniStore& store, const QString& section, const SchemeKeys& keys,
                 const MultiPlotScheme& scheme);

/// The looks of the strips that the user has, and which of them is in force. There is always one at least,
/// and no name comes twice.
class MultiPlotSchemes
{
public:
    /// More schemes are not read from a store.
    static constexpr int Most = 1000;

    /// The default look under the name "MultiPlot default scheme".
    MultiPlotSchemes();

    const QList<MultiPlotScheme>& schemes() const { return m_schemes; }
    QString currentName() const { return m_currentName; }
    /// The scheme of the current name.
    MultiPlotScheme current() const;

    /// Takes schemes and the name of the one in force. False, with nothing changed, without schemes. Of those
    /// of the same name the first is taken, and of a name that is not among them the first scheme instead.
    bool set(const QList<MultiPlotScheme>& schemes, const QString& currentName);
    /// Replaces the scheme in force by `scheme`, which takes over its name.
    void changeCurrent(const MultiPlotScheme& scheme);

    /// What the store does not hold keeps its value; see readScheme(). Schemes without a name are left out.
    void load(const IniStore& store, const QString& section);
    /// Into the section, which must exist.
    void save(IniStore& store, const QString& section) const;

private:
    int indexOf(const QString& name) const;

    QList<MultiPlotScheme> m_schemes;
    QString m_currentName;
};
