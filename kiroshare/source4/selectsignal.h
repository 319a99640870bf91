#pragma once

#include <QDialog>
#include <QList>
#include <QStringList>
#include <QTreeWidgetItem>

#include <memory>

namespace Ui
{
class SelectSignalBase;
}

/// A row of SelectSignal's table, ordered by the sort keys of the column that the table is sorted by: texts
/// by their characters, numbers by value, what is no number (NaN) first.
class SelectSignalItem : public QTreeWidgetItem
{
public:
    /// Which of the addItem() calls brought the row, from 0; an int, in column 0.
    static constexpr int IndexRole = Qt::UserRole + 1;
    /// The sort key of each column: a string or a double.
    static constexpr int SortKeyRole = Qt::UserRole + 2;

    using QTreeWidgetItem::QTreeWidgetItem;

    bool operator<(const QTreeWidgetItem& other) const override;
};

/// Asks for one or several items out of a table, such as the signals of a recording.
///
/// A list of more than FilterFrom items has a filter line above it, which shows the items that contain all of
/// its words in any column. Filtering never changes what is selected: a hidden item stays selected and a line
/// below the table says so, and the two buttons for all items act on the shown ones only. The items stand in
/// the order in which they were added until the user sorts them by a click on a column's title.
class SelectSignal : public QDialog
{
    Q_OBJECT

public:
    /// The filter line is shown from one more item on.
    static constexpr int FilterFrom = 12;

    explicit SelectSignal(QWidget* parent = nullptr);
    ~SelectSignal() override;

    /// What is asked for, above the table; an empty text is hidden.
    void setInfoText(const QString& text);
    /// The file that the items belong to, above the table; an empty name is hidden.
    void setDataFile(const QString& name);
    /// 1: one item can be selected, and a double click accepts; this is so from the start. Any other value:
    /// several items, with buttons for all of them.
    void setSelectionMode(int mode);
    /// The column titles, and which of the columns are sorted as text; a column without a flag is. No titles
    /// means one column of text. Comes before the first addItem().
    void setColumns(const QStringList& titles, const QList<bool>& columnIsText);
    const QList<bool>& columnIsText() const { return m_columnIsText; }
    /// What stands between the columns in the text of an item; a tab from the start.
    void setSeparator(const QString& separator) { m_separator = separator; }
    const QString& separator() const { return m_separator; }
    /// Adds a row. With several columns, a text that has not just one part for each is left out, yet counts:
    /// the indices of later items are those of the caller's list. In single selection nothing is current
    /// afterwards.
    void addItem(const QString& text);
    /// How many items must be selected to accept; 1 from the start. With 0 nothing need be, but accepting
    /// nothing is a cancel.
    void setMinimumSelection(int count);
    int minimumSelection() const { return m_minimumSelection; }

    /// Index of the selected item by the order of adding. It is a fatal error if there is none.
    int selectedSignal() const;
    /// The indices of all selected items, hidden ones included, in the order in which the table stands.
    QList<int> selectedSignals() const;
    /// Index of the first item that was selected when the dialog was last accepted; 0 before.
    int selectedIndex() const { return m_selectedIndex; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void on_list_itemSelectionChanged();
    void on_buttonOk_clicked();
    void on_buttonSelectAll_clicked();
    void on_buttonClearSelection_clicked();
    void on_editFilter_textChanged();

private:
    void setUpTable();
    void setUpButtons();
    bool isSingle() const;
    QStringList cellsOf(const QString& text) const;
    bool columnSortsAsText(int column) const;
    bool passesFilter(const QTreeWidgetItem& item) const;
    QList<const QTreeWidgetItem*> selectedRows() const;
    void enterTable();
    void showFilter();
    void showSelection();

    std::unique_ptr<Ui::SelectSignalBase> m_ui;
    QStringList m_titles;
    QList<bool> m_columnIsText;
    QString m_separator = QStringLiteral("\t");
    int m_minimumSelection = 1;
    int m_selectedIndex = 0;
    int m_addedCount = 0; ///< calls of addItem()
};
