#pragma once

#include <QPlainTextEdit>

/// Edits a text of a few lines; Tab leaves it. What the user leaves alone comes back as it was, with the
/// characters that an edit turns into others, such as blanks that don't break.
class DescriptionEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit DescriptionEdit(QWidget* parent = nullptr);

    void setDescription(const QString& text);
    QString description() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    int heightOf(int lines) const;

    QString m_given;
    QString m_shown; ///< what the edit makes of the given text
};
