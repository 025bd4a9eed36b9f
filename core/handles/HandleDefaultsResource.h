#pragma once

#include "handles/HandleDefaults.h"
#include "handles/ResourceHandleState.h"

namespace Hmi::Core {

/**
 * Key/value defaults of the current theme by name. An unknown name reads as an empty map.
 */
class HMICORE_EXPORT HandleDefaultsResource : public HandleDefaults
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(bool nameExists READ getNameExists NOTIFY nameExistsChanged)

public:
    explicit HandleDefaultsResource(QObject* aParent = nullptr);
    ~HandleDefaultsResource() override;
    Q_DISABLE_COPY(HandleDefaultsResource)

    QString getName() const { return mState.getName(); }
    void setName(const QString& aName) { mState.setName(aName); }
    bool getNameExists() const { return mState.getNameExists(); }

    QVariantMap getDefaults() const override;

    /// Stops following theme changes and lets go of the node until unfreeze().
    Q_INVOKABLE void freeze() { mState.freeze(); }
    /// Follows theme changes again and re-reads the value now.
    Q_INVOKABLE void unfreeze() { mState.unfreeze(); }

public slots:
    void onResourceChanged() { mState.onResourceChanged(); }

signals:
    void nameChanged();
    void nameExistsChanged();

private:
    ResourceHandleState mState;
};

} // namespace Hmi::Core
