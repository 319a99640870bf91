#include "labeltemplatelist.h"

#include <algorithm>

LabelTemplateList::LabelTemplateList(const QList<LabelTemplate>& templates)
    : m_templates(templates)
    , m_current(templates.isEmpty() ? -1 : 0)
{
}

int LabelTemplateList::indexOf(const QString& templateName) const
{
    const auto found = std::find_if(m_templates.begin(), m_templates.end(), [&](const LabelTemplate& each) {
        return each.templateName == templateName;
    });
    return found == m_templates.end() ? -1 : int(found - m_templates.begin());
}

void LabelTemplateList::setCurrent(int index)
{
    if (index >= 0 && index < m_templates.size())
        m_current = index;
}

void LabelTemplateList::changeCurrent(const QString& labelName, const QString& labelDescription,
                                      const QColor& labelColor)
{
    if (m_current < 0)
        return;
    LabelTemplate& changed = m_templates[m_current];
    changed.labelName = labelName;
    changed.labelDescription = labelDescription;
    changed.labelColor = labelColor;
}

bool LabelTemplateList::add(const QString& templateName)
{
    if (indexOf(templateName) >= 0)
        return false;
    m_templates << LabelTemplate{templateName, QString(), QString(), Qt::green};
    m_current = m_templates.size() - 1;
    return true;
}

bool LabelTemplateList::removeCurrent()
{
    if (m_templates.size() <= 1)
        return false;
    m_templates.removeAt(m_current);
    m_current = std::min(m_current, m_templates.size() - 1);
    return true;
}
