#pragma once

#include <QString>

#include <functional>

/// What work in a process of its own may take.
struct IsolationLimits
{
    unsigned seconds = 60;
    long mebibytes = 512; ///< of resident memory beyond what this process has
};

/// Runs `work` in a process of its own, so that a crash or a hang ends only that process. Empty if
/// `work` came back, or threw, within `limits`; else what became of it.
QString runIsolated(const std::function<void()>& work, const IsolationLimits& limits = {});
