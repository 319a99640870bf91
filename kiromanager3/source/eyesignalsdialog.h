#pragma once

#include "eyesignals.h"

#include <optional>

class KiroHeader;
class QWidget;

/// Asks which signals of a recording are the eye movements, with `proposed` selected; no value if the user
/// cancels. With `askAgain` set there is a box to have it cleared, so that the question does not come again.
std::optional<EyeSignals> askForEyeSignals(QWidget* parent, const KiroHeader& header,
                                           const EyeSignals& proposed, bool& askAgain);
