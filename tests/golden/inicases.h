#pragma once

#include "jsonvalues.h"

#include <QJsonObject>

struct GoldenCase;
class Report;

/// Kind "ini": a file as it is loaded (load, sections), written back (text) and read by the typed getters
/// (getters). Texts are characters and not bytes.
void checkIni(const GoldenCase& golden, Report& report);

/// Kind "iniSteps": operations on one store in turn, each with its result and the whole text behind it. All
/// stands in the expected file.
void checkIniSteps(const GoldenCase& golden, Report& report);

/// IniStore::relativePath: keys base, path and relative.
Verdict checkRelativePath(const QJsonObject& call);
