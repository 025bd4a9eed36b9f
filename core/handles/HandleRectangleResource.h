#pragma once

#include "handles/HandleRectangle.h"
#include "handles/ResourceHandleState.h"

namespace Hmi::Core {

/**
 * Rectangle of the current theme by name: fill, border, radius, gradient and image.
 */
class HMICORE_EXPORT HandleRectangleResource : public HandleRectangle
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(bool nameExists READ getNameExists NOTIFY nameExistsChanged)

public:
    explicit HandleRectangleResource(QObject* aParent = nullptr);
    ~HandleRectangleResource() override;
    Q_DISABLE_COPY(HandleRectangleResource)

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
    QColor getColor() const override;
    bool getColorSet() const override;
    QColor getBorderColor() const override;
    bool getBorderColorSet() const override;
    int getBorderWidth() const override;
    qreal getRadius() const override;
    int getGradientType() const override;
    qreal getGradientAngle() const override;
    QPointF getGradientBegin() const override;
    QPointF getGradientEnd() const override;
    bool getGradientEndSet() const override;
    int getGradientStopsCount() const override;
    HmiGradientStop* getGradientStopAt(int aIndex) const override;

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
