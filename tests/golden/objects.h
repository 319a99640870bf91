#pragma once

#include "jsonvalues.h"

#include <QJsonObject>

#include <functional>

class Report;

/// Whether a key of an expected file describes the case and is no answer of the tree. File size and
/// hash of the input are among them: they are checked for every case before it runs.
bool isBookkeeping(const QString& key);

/// Whether every key of `object` is one of `keys`, which are separated by blanks.
bool hasOnlyKeys(const QJsonObject& object, const char* keys);

/// An integer of 32 bits. Throws std::runtime_error if `value` is none.
int integerOf(const QJsonValue& value);

/// One unit for each call in the array `calls`, named "NAME[0]" and so on. A call with a key other than
/// `keys` asks for something unknown and is skipped.
void runCalls(const QString& name, const QJsonValue& calls, const char* keys,
              const std::function<Verdict(const QJsonObject& call)>& check, Report& report);
