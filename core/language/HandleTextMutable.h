#pragma once

#include "handles/HandleText.h"

namespace Hmi::Core {

/// A text set directly, for texts that do not come from the language files.
class HMICORE_EXPORT HandleTextMutable : public HandleText
{
    Q_OBJECT
    Q_PROPERTY(QString text READ getText WRITE setText NOTIFY textChanged)

public:
    explicit HandleTextMutable(QObject* aParent = nullptr);
    HandleTextMutable(const QString& aText, QObject* aParent);
    ~HandleTextMutable() override;
    Q_DISABLE_COPY(HandleTextMutable)

    QString getText() const override { return mText; }
    void setText(const QString& aText);

signals:
    // Declared again so that QML sees the writable property's own notifier.
    void textChanged();

private:
    QString mText;
};

} // namespace Hmi::Core
