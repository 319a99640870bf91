#pragma once

#include <QTreeWidget>

/// A flat table of items to choose from, part of which may be hidden by a filter.
///
/// Where several can be selected a click turns one item on or off, a click with Shift turns on all shown ones
/// from the one clicked before, and so does dragging. No mouse or key action changes the selection of an item
/// that is hidden, except that selecting one of a single selection gives up the other.
class SignalList : public QTreeWidget
{
    Q_OBJECT

public:
    explicit SignalList(QWidget* parent = nullptr);

    /// Adds the shown items to the selection; does nothing in single selection.
    void selectAll() override;
    /// Takes the shown items out of the selection.
    void deselectShown();

    /// Room for the content, within 6 to 20 rows and 40 to 80 characters.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void showEvent(QShowEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void selectShown(QItemSelectionModel::SelectionFlags command);
    void fitColumns();
    int columnHint(int column) const;
    QSize sizeFor(int rows, int characters) const;
    bool isCut(const QModelIndex& index) const;
};
