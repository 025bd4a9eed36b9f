#pragma once

#include "handles/HandleColor.h"
#include "handles/ResourceHandleState.h"

namespace Hmi::Core {

/**
 * Colour of the current theme by name: `HandleColorResource { name: "background" }.color`.
 * An unknown name reads as transparent and is reported on every read.
 */
class HMICORE_EXPORT HandleColorResource : public HandleColor
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(bool nameExists READ getNameExists NOTIFY nameExistsChanged)

public:
    explicit HandleColorResource(QObject* aParent = nullptr);
    ~HandleColorResource() override;
    Q_DISABLE_COPY(HandleColorResource)

    QString getName() const { return mState.getName(); }
    void setName(const QString& aName) { mState.setName(aName); }
    bool getNameExists() const { return mState.getNameExists(); }

    QColor getColor() const override;
    QString getColorCss() const override;

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
