#pragma once

#include "labeltemplate.h"

#include <QList>

/// A list of label templates while it is edited. One of them is the current one, unless the list is empty.
class LabelTemplateList
{
public:
    /// The first template is the current one.
    explicit LabelTemplateList(const QList<LabelTemplate>& templates = {});

    const QList<LabelTemplate>& templates() const { return m_templates; }
    /// Index of the current template; -1 in an empty list.
    int current() const { return m_current; }
    /// The current template; an empty record in an empty list.
    LabelTemplate currentTemplate() const { return m_templates.value(m_current); }
    /// Index of the first template of this name; -1 for none.
    int indexOf(const QString& templateName) const;

    /// Any other index than those of the list changes nothing.
    void setCurrent(int index);
    /// Gives the current template what its label says and its colour; in an empty list nothing happens.
    void changeCurrent(const QString& labelName, const QString& labelDescription, const QColor& labelColor);
    /// Appends a green template without texts and makes it the current one. False, with nothing changed, if
    /// the name is in use.
    bool add(const QString& templateName);
    /// Removes the current template; the one behind it becomes the current one, or the new last one. False,
    /// with nothing changed, if there is no other.
    bool removeCurrent();

private:
    QList<LabelTemplate> m_templates;
    int m_current = -1;
};
