#include "selectsignals.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
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

/// A name is no rich text, whatever it looks like.
void keepNameAsToolTip(QComboBox* combo)
{
    const auto tell = [combo](const QString& name) { combo->setToolTip(name.toHtmlEscaped()); };
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
    auto* const combo = new QComboBox;
    combo->setObjectName(QStringLiteral("comboRole%1").arg(m_combos.size()));
    combo->setAccessibleName(text);
    combo->addItems(names);
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
    // The order of Tab is a ring; without this it would be entered at the buttons, which are older.
    if (m_combos.isEmpty())
        combo->setFocus();
    m_combos << combo;
}

int SelectSignals::selected(int row) const
{
    return row >= 0 && row < m_combos.size() ? m_combos[row]->currentIndex() : -1;
}
