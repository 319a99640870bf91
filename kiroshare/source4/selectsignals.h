#pragma once

#include <QDialog>
#include <QVector>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QStringList;
class QVBoxLayout;

/// Asks for one signal for each of several roles, such as the movements of both eyes.
///
/// With more than SelectSignal::FilterFrom names for a role there is a filter line above the roles, which
/// leaves the names in their lists that contain all of its words. Filtering never changes what is selected.
class SelectSignals : public QDialog
{
    Q_OBJECT

public:
    explicit SelectSignals(QWidget* parent = nullptr);

    /// What is asked for, above the roles; an empty text is hidden.
    void setInfoText(const QString& text);
    /// Appends a role: its text and a list of `names`, of which `current` is selected; the first one if that
    /// is no index of the list.
    void addRole(const QString& text, const QStringList& names, int current);
    /// Index of the name that is selected for role `row`, both from 0; -1 if the list is empty or there is
    /// no such role.
    int selected(int row) const;

private slots:
    void filterNames();

private:
    void addFilter(QVBoxLayout* layout);
    void addSeparatorLine();

    QLabel* m_info;
    QWidget* m_filterRow;
    QLineEdit* m_filter;
    QGridLayout* m_grid;
    QVector<QComboBox*> m_combos;
};
