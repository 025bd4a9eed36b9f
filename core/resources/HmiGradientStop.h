#pragma once

#include "hmicore_export.h"

#include <QColor>
#include <QObject>

namespace Hmi::Core {

/**
 * One stop of a rectangle gradient: a colour at a position from 0 to 1 along the gradient.
 * Rectangle nodes own the stops they read from a resource file; QML may also create them.
 */
class HMICORE_EXPORT HmiGradientStop : public QObject
{
    Q_OBJECT
    Q_PROPERTY(qreal position READ getPosition WRITE setPosition NOTIFY positionChanged)
    Q_PROPERTY(QColor color READ getColor WRITE setColor NOTIFY colorChanged)

public:
    explicit HmiGradientStop(QObject* aParent = nullptr);
    HmiGradientStop(qreal aPosition, const QColor& aColor, QObject* aParent = nullptr);
    ~HmiGradientStop() override;
    Q_DISABLE_COPY(HmiGradientStop)

    qreal getPosition() const { return mPosition; }
    void setPosition(qreal aPosition);

    QColor getColor() const { return mColor; }
    void setColor(const QColor& aColor);

signals:
    void positionChanged();
    void colorChanged();

private:
    qreal mPosition = 0.0;
    QColor mColor;
};

} // namespace Hmi::Core
