#include "reviewframeimpl.h"

#include "modulewindow.h"
#include "openevents.h"
#include "themedicon.h"

#include <QCloseEvent>

ReviewFrame::ReviewFrame(QWidget* parent)
    : QWidget(parent)
{
    setWindowTitle(tr("Signals browser"));
    setWindowIcon(themedIcon(QStringLiteral("signals-browser")));
    addClosingShortcuts(this);
}

void ReviewFrame::closeEvent(QCloseEvent* event)
{
    keepModuleGeometry(*this, section());
    event->accept();
}

void ReviewFrame::customEvent(QEvent* event)
{
    if (event->type() == OpenFileEvent::Number)
        setWindowTitle(moduleTitle(tr("Signals browser"), static_cast<OpenFileEvent*>(event)->path()));
}
