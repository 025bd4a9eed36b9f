#pragma once

#include "hmicore_export.h"

#include <QAbstractListModel>
#include <QVariant>

namespace Hmi::Core {

/**
 * Base of the list models that QML views show: a flat list of values (usually QObjects) with
 * the editing calls of a QML ListModel. This class does the bounds checks and the model
 * signals; a derived model keeps the values, implements rowCount() and the protected storage
 * calls, each of which may assume a valid index.
 *
 * A delegate reads its value as "modelData", or as "object" when the value is a QObject.
 *
 * \code
 * ListView {
 *     model: HmiCore.createQVariantObjectModel(root)
 *     delegate: Text { text: modelData.title }
 * }
 * \endcode
 */
class HMICORE_EXPORT ObjectListModelBase : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ getCount NOTIFY countChanged)

public:
    enum Roles
    {
        ModelDataRole = Qt::UserRole + 1,
        ObjectRole,
    };

    explicit ObjectListModelBase(QObject* aParent = nullptr);
    ~ObjectListModelBase() override;
    Q_DISABLE_COPY(ObjectListModelBase)

    int getCount() const { return rowCount(); }

    /// The value at aIndex; an invalid variant, with a warning, when out of range.
    Q_INVOKABLE QVariant get(int aIndex) const;
    /// False, with a warning, when the model does not take the value.
    Q_INVOKABLE bool append(const QVariant& aValue);
    /// aIndex may equal count (appends). False, with a warning, when out of range or when the
    /// model does not take the value.
    Q_INVOKABLE bool insert(int aIndex, const QVariant& aValue);
    Q_INVOKABLE bool remove(int aIndex);
    Q_INVOKABLE void clear();
    /// Moves one value so that it ends up at aTo.
    Q_INVOKABLE bool move(int aFrom, int aTo);

    QVariant data(const QModelIndex& aIndex, int aRole = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

protected:
    virtual QVariant getValueAt(int aIndex) const = 0;
    /// Whether storeValueAt() would take aValue. The default refuses only invalid variants,
    /// which get() could not tell apart from an index out of range.
    virtual bool isAcceptedValue(const QVariant& aValue) const;
    virtual void storeValueAt(int aIndex, const QVariant& aValue) = 0;
    virtual void removeValueAt(int aIndex) = 0;
    virtual void moveValue(int aFrom, int aTo) = 0;
    virtual void clearValues() = 0;
};

} // namespace Hmi::Core
