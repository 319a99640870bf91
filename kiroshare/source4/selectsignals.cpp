#include "selectsignals.h"

#include "filterwords.h"
#include "plaintooltip.h"
#include "selectsignal.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStringListModel>
#include <QStylePainter>
#include <QVBoxLayout>

namespace
{

/// Room for the names, in characters; longer ones are cut in the closed list.
constexpr int LeastCharacters = 24;
constexpr int MostCharacters = 36;

int charactersFor(const QStringList& names)
{
    int longest = 0;
    for (const QString& name : names)
        longest = qMax(longest, name.size());
    return qBound(LeastCharacters, longest, MostCharacters);
}

/// Shortens a name that is too long for it in the middle, where signal names differ least.
class NameBox : public QComboBox
{
protected:
    void paintEvent(QPaintEvent*) override
    {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QRect room =
            style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        // What the style leaves free before the text.
        const int margin = fontMetrics().averageCharWidth() / 2;
        option.currentText = fontMetrics().elidedText(currentText(), Qt::ElideMiddle, room.width() - margin);
        QStylePainter painter(this);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
};

/// The names of one role of which a filter leaves some, and always the selected one.
class RoleNames : public QSortFilterProxyModel
{
public:
    RoleNames(const QStringList& names, QObject* parent)
        : QSortFilterProxyModel(parent)
    {
        setSourceModel(new QStringListModel(names, this));
    }

    /// `selected` is a row of all names.
    void setFilter(const FilterWords& words, int selected)
    {
        m_words = words;
        m_selected = selected;
        invalidateFilter();
    }
    /// The row among all names of a row that the filter leaves; -1 for none.
    int rowOfAll(int row) const { return mapToSource(index(row, 0)).row(); }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        return row == m_selected || m_words.areIn({sourceModel()->index(row, 0, parent).data().toString()});
    }

private:
    FilterWords m_words;
    int m_selected = -1;
};

/// The names of a role's list.
RoleNames& namesOf(const QComboBox* combo)
{
    return static_cast<RoleNames&>(*combo->model());
}

/// A name is no rich text, whatever it looks like.
void keepNameAsToolTip(QComboBox* combo)
{
    const auto tell = [combo](const QString& name) { combo->setToolTip(plainToolTip(name)); };
    QObject::connect(combo, &QComboBox::currentTextChanged, combo, tell);
    tell(combo->currentText());
}

} // namespace

SelectSignals::SelectSignals(QWidget* parent)
    : QDialog(parent)
    , m_info(new QLabel)
{
    setWindowTitle(tr("Select signals"));
    m_info->setObjectName(QStringLiteral("labelInfo"));
    m_info->setTextFormat(Qt::PlainText);
    m_info->setWordWrap(true);
    m_info->hide();
    auto* const roles = new QGroupBox;
    roles->setObjectName(QStringLiteral("groupRoles"));
    m_grid = new QGridLayout(roles);
    m_grid->setColumnStretch(1, 1);
    auto* const buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttonBox->setObjectName(QStringLiteral("buttonBox"));
    connect(buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_info);
    addFilter(layout);
    layout->addWidget(roles);
    layout->addStretch(1);
    layout->addWidget(buttonBox);
    buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
}

void SelectSignals::setInfoText(const QString& text)
{
    m_info->setText(text);
    m_info->setVisible(!text.isEmpty());
}

void SelectSignals::addFilter(QVBoxLayout* layout)
{
    m_filterRow = new QWidget;
    m_filter = new QLineEdit;
    m_filter->setObjectName(QStringLiteral("editFilter"));
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setPlaceholderText(tr("Words of a name"));
    m_filter->setToolTip(tr("Leaves the names in the lists that contain all these words"));
    m_filter->setClearButtonEnabled(true);
    connect(m_filter, &QLineEdit::textChanged, this, &SelectSignals::filterNames);
    auto* const label = new QLabel(tr("&Filter"));
    label->setBuddy(m_filter);
    auto* const row = new QHBoxLayout(m_filterRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(m_filter, 1);
    layout->addWidget(m_filterRow);
    m_filterRow->hide();
}

void SelectSignals::filterNames()
{
    const FilterWords words(m_filter->text());
    for (int row = 0; row < m_combos.size(); ++row)
        namesOf(m_combos[row]).setFilter(words, selected(row));
}

void SelectSignals::addSeparatorLine()
{
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    m_grid->addWidget(line, m_grid->rowCount(), 0, 1, 2);
}

void SelectSignals::addRole(const QString& text, const QStringList& names, int current)
{
    if (!m_combos.isEmpty())
        addSeparatorLine();
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    auto* const combo = new NameBox;
    combo->setObjectName(QStringLiteral("comboRole%1").arg(m_combos.size()));
    combo->setAccessibleName(text);
    combo->setModel(new RoleNames(names, combo));
    combo->setCurrentIndex(current >= 0 && current < names.size() ? current : qMin(0, names.size() - 1));
    combo->setMaxVisibleItems(20);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(charactersFor(names));
    combo->view()->setTextElideMode(Qt::ElideMiddle);
    keepNameAsToolTip(combo);
    label->setBuddy(combo);

    const int row = m_grid->rowCount();
    m_grid->addWidget(label, row, 0, Qt::AlignTrailing | Qt::AlignVCenter);
    m_grid->addWidget(combo, row, 1);
    // The buttons are older, and would come first.
    setTabOrder(m_combos.isEmpty() ? static_cast<QWidget*>(m_filter) : m_combos.last(), combo);
    m_combos << combo;
    if (names.size() > SelectSignal::FilterFrom)
        m_filterRow->show();
    filterNames();
}

int SelectSignals::selected(int row) const
{
    if (row < 0 || row >= m_combos.size())
        return -1;
    return namesOf(m_combos[row]).rowOfAll(m_combos[row]->currentIndex());
}
