#pragma once

#include "hmicore_export.h"

#include <QObject>
#include <QStringList>

namespace Hmi::Core {

/// A named variant of a theme ("day", "night") with packages that take precedence over the theme's.
class HMICORE_EXPORT ThemeMode final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName CONSTANT)
    Q_PROPERTY(QStringList packages READ getPackages CONSTANT)

public:
    ThemeMode(const QString& aName, const QStringList& aPackages, QObject* aParent = nullptr);
    ~ThemeMode() override;
    Q_DISABLE_COPY(ThemeMode)

    const QString& getName() const { return mName; }
    /// Package file names, highest priority first.
    const QStringList& getPackages() const { return mPackages; }

private:
    const QString mName;
    const QStringList mPackages;
};

} // namespace Hmi::Core
