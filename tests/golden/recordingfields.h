#pragma once

#include "jsonvalues.h"

class Recording;

/// A check of one field against its expected value.
using HeaderFieldCheck = Verdict (*)(Recording& recording, const QJsonValue& wanted);
/// The same for a field of signal `signal`, which exists.
using SignalFieldCheck = Verdict (*)(Recording& recording, int signal, const QJsonValue& wanted);

/// The check of field `key` of an open recording, or null for a field that is not served.
HeaderFieldCheck headerFieldCheck(const QString& key);
SignalFieldCheck signalFieldCheck(const QString& key);
