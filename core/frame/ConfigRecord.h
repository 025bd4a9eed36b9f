#pragma once

#include <QString>
#include <QVariant>

namespace Hmi::Core {

/// One configuration key: its default, the value an ini file gave it, and where that file lives.
struct ConfigRecord
{
    /// Directory of the ini file that last set the value, with a trailing "/"; empty for defaults.
    QString directory;
    /// The value names a file-system path that may be relative to `directory`.
    bool isPath = false;
    QVariant defaultValue;
    /// Invalid until an ini file sets the key.
    QVariant value;
};

} // namespace Hmi::Core
