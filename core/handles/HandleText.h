#pragma once

#include "hmicore_export.h"

#include <QObject>
#include <QString>

namespace Hmi::Core {

/**
 * Read-only text for QML. The plain handle shows the fixed text it was made with (empty by
 * default); the mutable, resource-backed and parameterised handles derive from it and override
 * getText().
 */
class HMICORE_EXPORT HandleText : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text READ getText NOTIFY textChanged)

public:
    explicit HandleText(QObject* aParent = nullptr);
    HandleText(const QString& aText, QObject* aParent);
    ~HandleText() override;
    Q_DISABLE_COPY(HandleText)

    virtual QString getText() const;

signals:
    void textChanged();

private:
    const QString mText;
};

} // namespace Hmi::Core
