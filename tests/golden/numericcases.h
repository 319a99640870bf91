#pragma once

#include "numericvalues.h"

#include <QJsonObject>
#include <QString>

#include <any>
#include <variant>
#include <vector>

class Report;

/// What the calls of one case share: the members of the case, and what earlier calls left behind.
class NumericCase
{
public:
    /// `content` is the case.json in `folder`.
    NumericCase(QString folder, QJsonObject content);

    /// The object that is the member `name`, with all arrays in place. Throws std::runtime_error if there is
    /// none.
    CallArgs object(const char* name) const;

    /// What the calls of a family keep from one to the next. The first call that asks makes it from this
    /// case; all that ask must ask for the same type.
    template <class State>
    State& kept()
    {
        if (!m_kept.has_value())
            m_kept.emplace<State>(*this);
        return std::any_cast<State&>(m_kept);
    }

private:
    QString m_folder;
    QJsonObject m_content;
    std::any m_kept;
};

/// A routine that cases of numeric routines call.
///
/// Routines are served in families, one pair of files each: FAMILYcases.h declares a function that returns
/// the table of the family, FAMILYcases.cpp holds it, and numericcases.cpp names the function in its list
/// of families. `run` gets the arguments with all arrays in place, and the case if its calls build on one
/// another. It returns what the tree answers, named and nested as the member "expect" of the corpus is; the
/// comparison is not its business. What it throws is a difference.
struct NumericRoutine
{
    using Alone = Answer (*)(const CallArgs& args);
    using InCase = Answer (*)(const CallArgs& args, NumericCase& ofCase);

    const char* name;
    const char* args; ///< names of all arguments that `run` heeds, separated by blanks
    std::variant<Alone, InCase> run;

    Answer answer(const CallArgs& callArgs, NumericCase& ofCase) const;
};

using NumericFamily = std::vector<NumericRoutine>;

/// Checks each call of a case whose arrays and texts lie in `folder`; `content` is its case.json. A call
/// is one unit, "calls[0] ROUTINE" and so on. Calls of a routine that no family serves, or with an argument
/// that is unknown, are skipped.
void runNumericCase(const QString& folder, const QJsonObject& content, Report& report);
