// SPDX-License-Identifier: MIT
#pragma once

/// Counts the warnings of Qt and of the controls while it lives, and passes them on. What the platform of
/// windows without a display says it cannot do is left out. One at a time. GUI thread.
class WarningCount
{
public:
    WarningCount();
    ~WarningCount();
    WarningCount(const WarningCount &) = delete;
    WarningCount &operator=(const WarningCount &) = delete;

    /// From any thread.
    int count() const;
};
