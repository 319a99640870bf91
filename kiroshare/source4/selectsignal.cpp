#include "selectsignal.h"

#include "filterwords.h"
#include "kiroutils.h"
#include "messages.h"

#include "ui_selectsignal.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace
{

/// The value of a cell, written in the form of the program or of the user's language; 0 if it is no number.
double valueOf(const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok ? value : QLocale().toDouble(text);
}

} // namespace

bool SelectSignalItem::operator<(const QTreeWidgetItem& other) const
{
    const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
    const QVariant key = data(column, SortKeyRole);
    const QVariant otherKey = other.data(column, SortKeyRole);
    if (key.userType() != QMetaType::Double)
        return key.toString() < otherKey.toString();
    const double value = key.toDouble();
    const double otherValue = otherKey.toDouble();
    // An order in which NaN were equal to every number would be none.
    return value < otherValue || (std::isnan(value) && !std::isnan(otherValue));
}

SelectSignal::SelectSignal(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::SelectSignalBase>())
{
    m_ui->setupUi(this);
    setUpTable();
    setUpButtons();
    setInfoText(QString());
    setDataFile(QString());
    setSelectionMode(1);
}

SelectSignal::~SelectSignal() = default;

void SelectSignal::setUpTable()
{
    // No column is the sorted one until the user clicks its title.
    m_ui->list->header()->setSortIndicator(-1, Qt::AscendingOrder);
    m_ui->list->setSortingEnabled(true);
    setColumns({}, {});
    m_ui->editFilter->installEventFilter(this);
}

void SelectSignal::setUpButtons()
{
    m_ui->buttonBox->addButton(m_ui->buttonOk, QDialogButtonBox::AcceptRole);
    m_ui->buttonBox->addButton(m_ui->buttonCancel, QDialogButtonBox::RejectRole);
    m_ui->buttonOk->setDefault(true);
}

void SelectSignal::setInfoText(const QString& text)
{
    m_ui->labelInfo->setText(text);
    m_ui->labelInfo->setVisible(!text.isEmpty());
}

void SelectSignal::setDataFile(const QString& name)
{
    m_ui->labelFile->setText(name);
    m_ui->labelFile->setVisible(!name.isEmpty());
    m_ui->labelDataFile->setVisible(!name.isEmpty());
}

bool SelectSignal::isSingle() const
{
    return m_ui->list->selectionMode() == QAbstractItemView::SingleSelection;
}

void SelectSignal::setSelectionMode(int mode)
{
    const bool single = mode == 1;
    if (single != isSingle())
        m_ui->list->clearSelection();
    // Toggling by clicks and not the extended mode, whose every click gives up what the filter hides.
    m_ui->list->setSelectionMode(single ? QAbstractItemView::SingleSelection
                                        : QAbstractItemView::MultiSelection);
    if (single)
        connect(m_ui->list, &QTreeWidget::itemDoubleClicked, this, &SelectSignal::on_buttonOk_clicked,
                Qt::UniqueConnection);
    else
        disconnect(m_ui->list, &QTreeWidget::itemDoubleClicked, this, &SelectSignal::on_buttonOk_clicked);
    m_ui->buttonSelectAll->setVisible(!single);
    m_ui->buttonClearSelection->setVisible(!single);
    showFilter();
    on_list_itemSelectionChanged();
}

void SelectSignal::setColumns(const QStringList& titles, const QList<bool>& columnIsText)
{
    m_titles = titles;
    m_columnIsText = columnIsText;
    m_ui->list->setColumnCount(qMax(1, titles.size()));
    m_ui->list->setHeaderLabels(titles.isEmpty() ? QStringList(QString()) : titles);
    for (int column = 0; column < titles.size(); ++column) {
        const Qt::Alignment side = columnSortsAsText(column) ? Qt::AlignLeading : Qt::AlignTrailing;
        m_ui->list->headerItem()->setTextAlignment(column, int(side | Qt::AlignVCenter));
    }
}

bool SelectSignal::columnSortsAsText(int column) const
{
    return m_columnIsText.value(column, true);
}

/// The parts of a text for the columns; none if they don't fit.
QStringList SelectSignal::cellsOf(const QString& text) const
{
    if (m_titles.size() <= 1)
        return {text};
    const QStringList parts = text.split(m_separator, Qt::KeepEmptyParts);
    return parts.size() == m_titles.size() ? parts : QStringList();
}

void SelectSignal::addItem(const QString& text)
{
    const int index = m_addedCount++;
    if (m_titles.isEmpty())
        m_ui->list->setHeaderLabel(tr("Item"));
    const QStringList cells = cellsOf(text);
    if (cells.isEmpty())
        return;
    auto* const item = new SelectSignalItem(cells);
    item->setData(0, SelectSignalItem::IndexRole, index);
    for (int column = 0; column < cells.size(); ++column) {
        const bool asText = columnSortsAsText(column);
        item->setData(column, SelectSignalItem::SortKeyRole,
                      asText ? QVariant(cells[column]) : QVariant(valueOf(cells[column])));
        if (!asText)
            item->setTextAlignment(column, int(Qt::AlignTrailing | Qt::AlignVCenter));
    }
    m_ui->list->addTopLevelItem(item);
    item->setHidden(!passesFilter(*item));
    if (isSingle())
        m_ui->list->setCurrentItem(nullptr);
    showFilter();
}

/// The filter line, and the line that says what is selected where the table itself may not.
void SelectSignal::showFilter()
{
    const bool isLong = m_ui->list->topLevelItemCount() > FilterFrom;
    m_ui->labelFilter->setVisible(isLong);
    m_ui->editFilter->setVisible(isLong);
    m_ui->labelSelected->setVisible(isLong || !isSingle());
}

void SelectSignal::setMinimumSelection(int count)
{
    m_minimumSelection = count;
    on_list_itemSelectionChanged();
}

/// Not by QTreeWidget::selectedItems(), which leaves hidden ones out.
QList<const QTreeWidgetItem*> SelectSignal::selectedRows() const
{
    QList<const QTreeWidgetItem*> rows;
    for (int row = 0; row < m_ui->list->topLevelItemCount(); ++row) {
        if (m_ui->list->topLevelItem(row)->isSelected())
            rows << m_ui->list->topLevelItem(row);
    }
    return rows;
}

int SelectSignal::selectedSignal() const
{
    const QList<int> indices = selectedSignals();
    if (indices.isEmpty())
        KiroError::fatalError("SelectSignal::selectedSignal() - no signal selected!");
    return indices.first();
}

QList<int> SelectSignal::selectedSignals() const
{
    QList<int> indices;
    for (const QTreeWidgetItem* item : selectedRows())
        indices << item->data(0, SelectSignalItem::IndexRole).toInt();
    return indices;
}

void SelectSignal::on_list_itemSelectionChanged()
{
    m_ui->buttonOk->setEnabled(selectedRows().size() >= m_minimumSelection);
    showSelection();
}

void SelectSignal::on_buttonOk_clicked()
{
    const QList<int> indices = selectedSignals();
    if (indices.size() < m_minimumSelection) {
        showWarning(this, tr("At least %1 items must be selected!").arg(m_minimumSelection));
        return;
    }
    if (indices.isEmpty()) {
        reject();
        return;
    }
    m_selectedIndex = indices.first();
    accept();
}

void SelectSignal::on_buttonSelectAll_clicked()
{
    m_ui->list->selectAll();
}

void SelectSignal::on_buttonClearSelection_clicked()
{
    m_ui->list->deselectShown();
}

void SelectSignal::on_editFilter_textChanged()
{
    for (int row = 0; row < m_ui->list->topLevelItemCount(); ++row) {
        QTreeWidgetItem* const item = m_ui->list->topLevelItem(row);
        item->setHidden(!passesFilter(*item));
    }
    showSelection();
}

bool SelectSignal::passesFilter(const QTreeWidgetItem& item) const
{
    QStringList cells;
    for (int column = 0; column < item.columnCount(); ++column)
        cells << item.text(column);
    return FilterWords(m_ui->editFilter->text()).areIn(cells);
}

void SelectSignal::showSelection()
{
    const QList<const QTreeWidgetItem*> rows = selectedRows();
    const auto hidden =
        std::count_if(rows.begin(), rows.end(), [](const QTreeWidgetItem* item) { return item->isHidden(); });
    QString text;
    if (isSingle() && hidden > 0)
        text = tr("Selected, but hidden by the filter: %1").arg(rows.first()->text(0));
    else if (!isSingle() && hidden > 0)
        text = tr("%1 selected, %2 of them hidden by the filter").arg(rows.size()).arg(hidden);
    else if (!isSingle())
        text = tr("%1 selected").arg(rows.size());
    m_ui->labelSelected->setText(text);
}

/// The down arrow leads from the filter line to the table.
bool SelectSignal::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->editFilter && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        enterTable();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

/// Goes to the first shown item; in single selection that selects it.
void SelectSignal::enterTable()
{
    m_ui->list->setFocus();
    for (int row = 0; row < m_ui->list->topLevelItemCount(); ++row) {
        QTreeWidgetItem* const item = m_ui->list->topLevelItem(row);
        if (item->isHidden())
            continue;
        m_ui->list->setCurrentItem(item, 0,
                                   isSingle()
                                       ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                                       : QItemSelectionModel::NoUpdate);
        return;
    }
}
