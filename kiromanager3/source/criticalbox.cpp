#include "criticalbox.h"

#include <QApplication>
#include <QMessageBox>
#include <QThread>

#include <atomic>
#include <cstdio>

namespace
{

std::atomic<bool> boxesAllowed{false};
std::atomic<int> openBoxes{0};

} // namespace

CriticalBoxPeriod::CriticalBoxPeriod()
{
    boxesAllowed = true;
}

CriticalBoxPeriod::~CriticalBoxPeriod()
{
    boxesAllowed = false;
}

bool canShowBox()
{
    return boxesAllowed && QThread::currentThread() == qApp->thread();
}

void showCritical(const QString& title, const QString& text)
{
    if (!canShowBox()) {
        std::fprintf(stderr, "%s: %s\n", title.toLocal8Bit().constData(), text.toLocal8Bit().constData());
        return;
    }
    QMessageBox box(QMessageBox::Critical, title, text, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    // The box may be the last window: closing it must not end the event loop of a box that follows it.
    box.setAttribute(Qt::WA_QuitOnClose, false);
    ++openBoxes;
    box.exec();
    --openBoxes;
}

bool isCriticalBoxOpen()
{
    return openBoxes > 0;
}
