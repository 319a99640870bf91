#include "signallist.h"

#include "plaintooltip.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace
{

/// What a column that is not the widest gets at most, in characters; the user may widen it.
constexpr int MostOfColumn = 20;

} // namespace

SignalList::SignalList(QWidget* parent)
    : QTreeWidget(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideMiddle);
}

void SignalList::selectAll()
{
    if (selectionMode() != SingleSelection)
        selectShown(QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void SignalList::deselectShown()
{
    selectShown(QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
}

void SignalList::selectShown(QItemSelectionModel::SelectionFlags command)
{
    QItemSelection shown;
    for (int row = 0; row < topLevelItemCount(); ++row) {
        if (!topLevelItem(row)->isHidden())
            shown.select(model()->index(row, 0), model()->index(row, 0));
    }
    selectionModel()->select(shown, command);
}

QItemSelectionModel::SelectionFlags SignalList::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const
{
    const bool mouse =
        event && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove);
    if (mouse && selectionMode() == MultiSelection &&
        static_cast<const QMouseEvent*>(event)->modifiers() & Qt::ShiftModifier)
        return QItemSelectionModel::Select | QItemSelectionModel::Current | QItemSelectionModel::Rows;
    return QTreeWidget::selectionCommand(index, event);
}

void SignalList::showEvent(QShowEvent* event)
{
    fitColumns();
    QTreeWidget::showEvent(event);
}

/// The widest column takes the room that the others leave, so that all of them are in sight.
void SignalList::fitColumns()
{
    const int most = fontMetrics().averageCharWidth() * MostOfColumn;
    int widest = 0;
    header()->setStretchLastSection(false);
    for (int column = 0; column < columnCount(); ++column) {
        if (columnHint(column) > columnHint(widest))
            widest = column;
        header()->setSectionResizeMode(column, QHeaderView::Interactive);
        setColumnWidth(column, std::min(columnHint(column), most));
    }
    header()->setSectionResizeMode(widest, QHeaderView::Stretch);
}

int SignalList::columnHint(int column) const
{
    return std::max(sizeHintForColumn(column), header()->sectionSizeHint(column));
}

bool SignalList::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = indexAt(help->pos());
        if (isCut(index)) {
            // A signal's name is no rich text, whatever it looks like.
            QToolTip::showText(help->globalPos(), plainToolTip(index.data().toString()), this);
            return true;
        }
    }
    return QTreeWidget::viewportEvent(event);
}

bool SignalList::isCut(const QModelIndex& index) const
{
    return index.isValid() && sizeHintForIndex(index).width() > visualRect(index).width();
}

QSize SignalList::sizeHint() const
{
    int width = 0;
    for (int column = 0; column < columnCount(); ++column)
        width += columnHint(column);
    const int characters = width / fontMetrics().averageCharWidth() + 1;
    return sizeFor(std::clamp(topLevelItemCount(), 6, 20), std::clamp(characters, 40, 80));
}

QSize SignalList::minimumSizeHint() const
{
    return sizeFor(4, 24);
}

QSize SignalList::sizeFor(int rows, int characters) const
{
    const int row = topLevelItemCount() > 0 ? sizeHintForRow(0) : fontMetrics().height();
    return {characters * fontMetrics().averageCharWidth() + verticalScrollBar()->sizeHint().width() +
                2 * frameWidth(),
            header()->sizeHint().height() + rows * row + 2 * frameWidth()};
}
