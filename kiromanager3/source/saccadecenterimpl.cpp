#include "saccadecenterimpl.h"

#include "modulewindow.h"
#include "openevents.h"
#include "themedicon.h"

#include <QCloseEvent>

SaccadeCenter::SaccadeCenter(QWidget* parent)
    : QWidget(parent)
{
    setWindowTitle(tr("Saccades browser"));
    setWindowIcon(themedIcon(QStringLiteral("saccades-browser")));
    addClosingShortcuts(this);
}

void SaccadeCenter::closeEvent(QCloseEvent* event)
{
    keepModuleGeometry(*this, section());
    event->accept();
}

void SaccadeCenter::customEvent(QEvent* event)
{
    if (event->type() == OpenFileEvent::Number)
        setWindowTitle(moduleTitle(tr("Saccades browser"), static_cast<OpenFileEvent*>(event)->path()));
}
