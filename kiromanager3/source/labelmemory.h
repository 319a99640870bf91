#pragma once

#include "labeltemplate.h"

#include <QCoreApplication>
#include <QList>

class IniStore;

/// The user's label templates, and what the next label of the signals browser begins with.
class LabelMemory
{
    Q_DECLARE_TR_FUNCTIONS(LabelMemory)

public:
    /// More templates are not read from a store.
    static constexpr int Most = 1000;

    static QString defaultName() { return tr("New label name"); }
    static QString defaultDescription() { return tr("New label description"); }

    /// No templates; the next label has the default texts and the colour of the default scheme's markers.
    LabelMemory();

    const QList<LabelTemplate>& templates() const { return m_templates; }
    void setTemplates(const QList<LabelTemplate>& templates) { m_templates = templates; }

    /// Name, description and colour for the next label.
    const LabelTemplate& next() const { return m_next; }
    /// Learns from a label that the user has just made: its colour always; its texts if they and the colour
    /// are those of a template, while for any other label the default texts return.
    void remember(const QString& name, const QString& description, const QColor& color);

    /// What the store does not hold keeps its value, and so do colours that are none; a template without
    /// colour is black. Templates without a name are left out.
    void load(const IniStore& store, const QString& section);
    /// Into the section, which must exist.
    void save(IniStore& store, const QString& section) const;

private:
    QList<LabelTemplate> m_templates;
    LabelTemplate m_next;
};
