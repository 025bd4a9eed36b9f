#include "models/QVariantObjectListModel.h"

namespace Hmi::Core {

QVariantObjectListModel::QVariantObjectListModel(QObject* aParent)
    : ObjectListModelBase(aParent)
{ }

QVariantObjectListModel::~QVariantObjectListModel() = default;

int QVariantObjectListModel::rowCount(const QModelIndex& aParent) const
{
    // A list has no children; views ask with a valid parent to find that out.
    return aParent.isValid() ? 0 : mValues.size();
}

QVariant QVariantObjectListModel::getValueAt(int aIndex) const
{
    return mValues.at(aIndex);
}

void QVariantObjectListModel::storeValueAt(int aIndex, const QVariant& aValue)
{
    mValues.insert(aIndex, aValue);
}

void QVariantObjectListModel::removeValueAt(int aIndex)
{
    mValues.removeAt(aIndex);
}

void QVariantObjectListModel::moveValue(int aFrom, int aTo)
{
    mValues.move(aFrom, aTo);
}

void QVariantObjectListModel::clearValues()
{
    mValues.clear();
}

} // namespace Hmi::Core
