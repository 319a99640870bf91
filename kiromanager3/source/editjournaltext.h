#pragma once

#include <QByteArray>
#include <QString>

struct SaccadeSplice;
struct SaccadeState;

/// The text of a file of unsaved edits, see EditJournal.
///
/// Each line is what it says, " #", and a checksum of that in 16 hexadecimal digits. The first one is
/// "kiromanager unsaved edits 1", where 1 is the version. Then come a name and a value a line with all of a
/// SaccadeState but the saccades and the current one, in a fixed order. Then come the edits, of which the
/// first makes the list that the others change:
///
///     edit NUMBER current INDEX at INDEX removed COUNT added COUNT RECORDS
///
/// Edits are numbered from 0. RECORDS are the added saccades in base64: each its three blocks as in a saccade
/// file and one byte, 1 if it is valid.
namespace EditJournalText
{

/// Edits behind the first one that a file may have; more are not read.
constexpr int MostEdits = 1000;
/// Longest file that is read or written, in bytes.
constexpr qint64 MostBytes = 1 << 28;

/// The lines ahead of the edits.
QByteArray head(const SaccadeState& state);
/// The line of one edit.
QByteArray edit(int number, const SaccadeSplice& splice, int currentSaccade);

/// The state after the last edit that can be read. False, and `state` is as it was, if the head or the first
/// edit cannot be read, or if there is too little memory. `problem` says why, and also why the reading ended
/// ahead of the end of the text; it is empty if there was nothing wrong, which a last line without its end is
/// not.
///
/// The header's arrays become the lists. The current saccade is held within the list.
bool read(const QByteArray& text, SaccadeState& state, QString& problem);

/// The paths that the head names. False if one cannot be read.
bool readPaths(const QByteArray& text, QString& saccadeFile, QString& dataFile);

} // namespace EditJournalText
