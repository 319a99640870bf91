#pragma once

#include <functional>

class QString;
class QWidget;

/// Shows the plot widgets in all modes and styles; `keep` takes a picture of a widget under a name.
void showPlots(const std::function<void(QWidget& widget, const QString& name)>& keep);
