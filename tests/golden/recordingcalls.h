#pragma once

#include "jsonvalues.h"

#include <QJsonObject>

class Recording;
class Report;
struct GoldenCase;

/// The header as written back unchanged, to a KiroFile and to a QDataStream: keys size and sha256.
Verdict checkWrittenHeader(const Recording& recording, const QJsonObject& wanted);

/// Repair of the frame count, on a copy of the file: keys result, reason of a refusal, and frameCount and
/// sha256 of the whole file.
Verdict checkRepair(const GoldenCase& golden, const QJsonObject& wanted);

/// KiroHeader::findSignal: keys names and index.
Verdict checkFindSignal(const Recording& recording, const QJsonObject& call);

/// KiroReader::readSignal into both kinds of vectors: the arguments signal, calibrate, first and requested,
/// and the answers result, count and values (the first 40).
Verdict checkReadSignal(const Recording& recording, const QJsonObject& call);

/// One entry of the operations on the whole file, named "ops[0] OP" and so on. Those that are not served
/// are skipped.
void runOperations(const GoldenCase& golden, const QJsonValue& operations, Report& report);
