#pragma once

#include "handles/HandleImage.h"
#include "handles/ResourceHandleState.h"

namespace Hmi::Core {

/**
 * Image of the current theme by name: its source inside the theme package, sizes and margins.
 */
class HMICORE_EXPORT HandleImageResource : public HandleImage
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(bool nameExists READ getNameExists NOTIFY nameExistsChanged)

public:
    explicit HandleImageResource(QObject* aParent = nullptr);
    ~HandleImageResource() override;
    Q_DISABLE_COPY(HandleImageResource)

    QString getName() const { return mState.getName(); }
    void setName(const QString& aName) { mState.setName(aName); }
    bool getNameExists() const { return mState.getNameExists(); }

    QString getDefaultsName() const override;
    int getFrameCount() const override;
    QSize getFrameSize() const override;
    QSizeF getImplicitSize() const override;
    QMargins getPaddingExternal() const override;
    QMargins getPaddingInternal() const override;
    QUrl getSource() const override;
    QSize getSourceSize() const override;
    QMargins getTileMargins() const override;

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
