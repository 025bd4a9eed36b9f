#pragma once

#include "handles/HandleText.h"

#include <QSharedPointer>

namespace Hmi::Core {

class NodeText;

/**
 * The translated text of a key in the current language: `HandleTextResource { name: "STR_MENU_TITLE" }`.
 * A key the language lacks reads as an empty text and is reported once per key and language.
 */
class HMICORE_EXPORT HandleTextResource : public HandleText
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(bool nameExists READ getNameExists NOTIFY nameExistsChanged)

public:
    explicit HandleTextResource(QObject* aParent = nullptr);
    ~HandleTextResource() override;
    Q_DISABLE_COPY(HandleTextResource)

    const QString& getName() const { return mName; }
    void setName(const QString& aName);
    bool getNameExists() const;

    QString getText() const override;

public slots:
    void onLanguageChanged();

signals:
    void nameChanged();
    void nameExistsChanged();

private:
    QSharedPointer<const NodeText> resolve(bool aWarn) const;

    QString mName;
    mutable QSharedPointer<const NodeText> mNode;
};

} // namespace Hmi::Core
