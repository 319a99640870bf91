#pragma once

#include <QString>

class SafeFile;
struct DemoScript;

/// Writes what happens in a demo recording as one JSON object, with each event in a line of its own.
/// `recording` is its file name without a folder. Ends of events are inclusive samples of the signal that
/// shows them; angles are degrees. False if the file did not take all bytes.
bool writeDemoTruth(const DemoScript& script, const QString& recording, SafeFile& file);
