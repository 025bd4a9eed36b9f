#pragma once

#include "handles/HandleColor.h"

namespace Hmi::Core {

/// A colour set directly, for values that do not come from the theme: `HandleColorMutable { color: "red" }`.
class HMICORE_EXPORT HandleColorMutable : public HandleColor
{
    Q_OBJECT
    Q_PROPERTY(QColor color READ getColor WRITE setColor NOTIFY colorChanged)

public:
    explicit HandleColorMutable(QObject* aParent = nullptr);
    ~HandleColorMutable() override;
    Q_DISABLE_COPY(HandleColorMutable)

    QColor getColor() const override { return mColor; }
    void setColor(const QColor& aColor);
    /// Computed on the first read after a change.
    QString getColorCss() const override;

private:
    QColor mColor;
    mutable QString mColorCss;
};

} // namespace Hmi::Core
