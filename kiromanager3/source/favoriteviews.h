#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class IniStore;

/// A choice of signals to show, for files of the same signals as the one that it was made for.
struct FavoriteView
{
    QString name;
    QStringList allSignals;  ///< names of all signals of the file, in order
    QStringList viewSignals; ///< names of those that it shows, in order
    bool active = false;     ///< fits the open file; not stored
};

/// All favourite views of the user, and which of them fit the open file: those are the active ones, which a
/// combo box offers below an entry of its own for no view at all.
class FavoriteViews
{
    Q_DECLARE_TR_FUNCTIONS(FavoriteViews)

public:
    /// More views are not read from a store.
    static constexpr int Most = 1000;

    /// What the combo box says for no view.
    static QString customName() { return tr("Custom view"); }

    /// All that are stored, active or not.
    const QList<FavoriteView>& all() const { return m_views; }

    /// Makes those views active whose file had just these signals in this order, and the others inactive; no
    /// view fits an empty list.
    void activate(const QStringList& signalNames);
    /// Names of the active views, in order.
    QStringList activeNames() const;
    /// The first active view; none without active ones.
    std::optional<FavoriteView> firstActive() const;
    /// The first active view of this name.
    std::optional<FavoriteView> activeView(const QString& name) const;
    /// Number of the first active view that shows just these signals in this order; 0 if there is none. It
    /// counts from 1 among all stored views, inactive ones included, and goes to the combo box as it is,
    /// though that lists only the active ones.
    int numberShowing(const QStringList& shownSignals) const;

    /// False for customName() and the names of active views, which the combo box offers already.
    bool isFree(const QString& name) const;
    /// Appends an active view. False, with nothing changed, if the name is empty or not free.
    bool add(const QString& name, const QStringList& allSignals, const QStringList& shownSignals);
    /// Removes the first active view of this name. False if there is none.
    bool remove(const QString& name);

    /// What the store does not hold keeps its value. What is loaded is inactive; views without a name are
    /// left out.
    void load(const IniStore& store, const QString& section);
    /// Into the section, which must exist.
    void save(IniStore& store, const QString& section) const;

private:
    /// Index of the first active view of this name; -1 for none.
    int activeIndex(const QString& name) const;

    QList<FavoriteView> m_views;
};
