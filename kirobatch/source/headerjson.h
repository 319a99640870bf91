#pragma once

#include "kirostring.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

class KiroHeader;

/// A text of the core as JSON holds it: its bytes read as Latin-1, one character a byte, so that no byte
/// is lost whatever encoding the text is in.
QString jsonText(const KiroString& text);

/// The fields of a header: texts, date and time, counts, sizes and rates, "technicalRows",
/// "shownDuration" and "signals". Without signals "frameFrequency" and "frameMSecs" are left out and
/// "shownDuration" is null. Doubles that are not finite and integers from 2^53 on are strings.
QJsonObject headerToJson(const KiroHeader& header);
/// An object for each signal, in order.
QJsonArray signalsToJson(const KiroHeader& header);

/// "hh:mm:ss.zzz"; hours go on beyond 24. `ms` is whole, from 0 on.
KiroString durationText(double ms);
