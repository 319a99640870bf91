#pragma once

#include "kirosaccade.h"
#include "saccadetimes.h"

#include <QList>
#include <QString>

class QWidget;

/// The list "Select saccades": asks for some of the saccades, each with its measures.
///
/// The indices of the chosen ones, in the order of the list; none if the user cancels. `frequency` in Hz. The
/// dialog keeps its place in the settings.
QList<int> selectSaccades(QWidget* parent, const QList<KiroSaccade>& saccades, double frequency,
                          TimeUnit unit);

/// The columns' titles.
QStringList saccadeColumns(TimeUnit unit);
/// One saccade as a row, its cells separated by tabs and its numbers in the form of the user's system;
/// `number` counts from 1.
QString saccadeRow(int number, const KiroSaccadeEye& eye, double frequency, TimeUnit unit);
