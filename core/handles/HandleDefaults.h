#pragma once

#include "hmicore_export.h"

#include <QObject>
#include <QVariantMap>

namespace Hmi::Core {

/**
 * Read-only key/value defaults for QML, typically the preset properties of a component.
 * The plain handle holds an empty map; the resource-backed handle overrides getDefaults().
 *
 * \code
 * Slider { stepSize: sliderDefaults.defaults.stepSize }
 * \endcode
 */
class HMICORE_EXPORT HandleDefaults : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantMap defaults READ getDefaults NOTIFY defaultsChanged)

public:
    explicit HandleDefaults(QObject* aParent = nullptr);
    ~HandleDefaults() override;
    Q_DISABLE_COPY(HandleDefaults)

    virtual QVariantMap getDefaults() const;

signals:
    void defaultsChanged();
};

} // namespace Hmi::Core
