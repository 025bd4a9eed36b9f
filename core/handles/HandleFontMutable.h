#pragma once

#include "handles/HandleFont.h"

namespace Hmi::Core {

/// A font set directly, for values that do not come from the theme.
class HMICORE_EXPORT HandleFontMutable : public HandleFont
{
    Q_OBJECT
    Q_PROPERTY(QFont font READ getFont WRITE setFont NOTIFY fontChanged)

public:
    explicit HandleFontMutable(QObject* aParent = nullptr);
    ~HandleFontMutable() override;
    Q_DISABLE_COPY(HandleFontMutable)

    QFont getFont() const override { return mFont; }
    void setFont(const QFont& aFont);

private:
    QFont mFont;
};

} // namespace Hmi::Core
