#pragma once

#include "hmicore_export.h"
#include "models/ObjectListModelBase.h"

#include <QVariantList>

namespace Hmi::Core {

/**
 * Object list model of plain variants: QObjects, strings, numbers or JavaScript objects, mixed
 * as the caller likes. This is the model that HmiCore.createQVariantObjectModel() hands to QML.
 */
class HMICORE_EXPORT QVariantObjectListModel final : public ObjectListModelBase
{
    Q_OBJECT

public:
    explicit QVariantObjectListModel(QObject* aParent = nullptr);
    ~QVariantObjectListModel() override;
    Q_DISABLE_COPY(QVariantObjectListModel)

    int rowCount(const QModelIndex& aParent = QModelIndex()) const override;

protected:
    QVariant getValueAt(int aIndex) const override;
    void storeValueAt(int aIndex, const QVariant& aValue) override;
    void removeValueAt(int aIndex) override;
    void moveValue(int aFrom, int aTo) override;
    void clearValues() override;

private:
    QVariantList mValues;
};

} // namespace Hmi::Core
