#include "models/ObjectListModelBase.h"

#include <QtDebug>

namespace Hmi::Core {

namespace {

void warnOutOfRange(const char* aCall, int aIndex, int aCount)
{
    qWarning("WARNING: ObjectListModel::%s: index %d is out of range (count %d).", aCall, aIndex, aCount);
}

} // namespace

ObjectListModelBase::ObjectListModelBase(QObject* aParent)
    : QAbstractListModel(aParent)
{ }

ObjectListModelBase::~ObjectListModelBase() = default;

QVariant ObjectListModelBase::get(int aIndex) const
{
    if (aIndex < 0 || aIndex >= rowCount()) {
        warnOutOfRange("get", aIndex, rowCount());
        return QVariant();
    }
    return getValueAt(aIndex);
}

bool ObjectListModelBase::append(const QVariant& aValue)
{
    return insert(rowCount(), aValue);
}

bool ObjectListModelBase::insert(int aIndex, const QVariant& aValue)
{
    if (aIndex < 0 || aIndex > rowCount()) {
        warnOutOfRange("insert", aIndex, rowCount());
        return false;
    }
    if (!isAcceptedValue(aValue)) {
        qWarning("WARNING: ObjectListModel::insert: a value of type %s cannot be stored.",
            aValue.isValid() ? aValue.typeName() : "invalid");
        return false;
    }
    beginInsertRows(QModelIndex(), aIndex, aIndex);
    storeValueAt(aIndex, aValue);
    endInsertRows();
    emit countChanged();
    return true;
}

bool ObjectListModelBase::remove(int aIndex)
{
    if (aIndex < 0 || aIndex >= rowCount()) {
        warnOutOfRange("remove", aIndex, rowCount());
        return false;
    }
    beginRemoveRows(QModelIndex(), aIndex, aIndex);
    removeValueAt(aIndex);
    endRemoveRows();
    emit countChanged();
    return true;
}

void ObjectListModelBase::clear()
{
    if (rowCount() == 0) {
        return;
    }
    beginResetModel();
    clearValues();
    endResetModel();
    emit countChanged();
}

bool ObjectListModelBase::move(int aFrom, int aTo)
{
    const int count = rowCount();
    if (aFrom < 0 || aFrom >= count) {
        warnOutOfRange("move", aFrom, count);
        return false;
    }
    if (aTo < 0 || aTo >= count) {
        warnOutOfRange("move", aTo, count);
        return false;
    }
    if (aFrom == aTo) {
        return true;
    }
    // Qt wants the row the value is placed before, counted before the move: one further down
    // when moving towards the end.
    beginMoveRows(QModelIndex(), aFrom, aFrom, QModelIndex(), aTo > aFrom ? aTo + 1 : aTo);
    moveValue(aFrom, aTo);
    endMoveRows();
    return true;
}

QVariant ObjectListModelBase::data(const QModelIndex& aIndex, int aRole) const
{
    if (!checkIndex(aIndex, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return QVariant();
    }
    switch (aRole) {
    case Qt::DisplayRole:
    case ModelDataRole:
        return getValueAt(aIndex.row());
    case ObjectRole: {
        const QVariant value = getValueAt(aIndex.row());
        // Anything that is not a QObject has no "object"; null rather than a converted value.
        return value.canConvert<QObject*>() ? QVariant::fromValue(value.value<QObject*>()) : QVariant();
    }
    default:
        return QVariant();
    }
}

QHash<int, QByteArray> ObjectListModelBase::roleNames() const
{
    return {
        { ModelDataRole, QByteArrayLiteral("modelData") },
        { ObjectRole, QByteArrayLiteral("object") },
    };
}

bool ObjectListModelBase::isAcceptedValue(const QVariant& aValue) const
{
    return aValue.isValid();
}

} // namespace Hmi::Core
