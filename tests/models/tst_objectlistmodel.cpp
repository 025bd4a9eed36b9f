#include "models/QVariantObjectListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

using Hmi::Core::ObjectListModelBase;
using Hmi::Core::QVariantObjectListModel;

class tst_ObjectListModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void insert_data();
    void insert();
    void remove_data();
    void remove();
    void move_data();
    void move();
    void getOutOfRange();
    void clear();
    void invalidValueRefused();
    void roles();

private:
    QStringList contents() const;

    QVariantObjectListModel* mModel = nullptr;
    QAbstractItemModelTester* mTester = nullptr;
};

namespace {

const QStringList sAbc { QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") };

QString outOfRange(const char* aCall, int aIndex, int aCount)
{
    return QStringLiteral("WARNING: ObjectListModel::%1: index %2 is out of range (count %3).")
        .arg(QLatin1String(aCall))
        .arg(aIndex)
        .arg(aCount);
}

} // namespace

void tst_ObjectListModel::init()
{
    mModel = new QVariantObjectListModel(this);
    for (const QString& value : sAbc) {
        mModel->append(value);
    }
    // Checks every change signal against the model's state as the test goes.
    mTester
        = new QAbstractItemModelTester(mModel, QAbstractItemModelTester::FailureReportingMode::QtTest, this);
}

void tst_ObjectListModel::cleanup()
{
    delete mTester;
    delete mModel;
}

QStringList tst_ObjectListModel::contents() const
{
    QStringList values;
    for (int i = 0; i < mModel->getCount(); ++i) {
        values << mModel->get(i).toString();
    }
    return values;
}

void tst_ObjectListModel::insert_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("warning");

    QTest::newRow("front") << 0 << QStringList { "x", "a", "b", "c" } << QString();
    QTest::newRow("middle") << 2 << QStringList { "a", "b", "x", "c" } << QString();
    QTest::newRow("at count appends") << 3 << QStringList { "a", "b", "c", "x" } << QString();
    QTest::newRow("past count") << 4 << sAbc << outOfRange("insert", 4, 3);
    QTest::newRow("negative") << -1 << sAbc << outOfRange("insert", -1, 3);
}

void tst_ObjectListModel::insert()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);
    QFETCH(QString, warning);

    QSignalSpy inserted(mModel, &QAbstractItemModel::rowsInserted);
    QSignalSpy count(mModel, &ObjectListModelBase::countChanged);
    if (!warning.isEmpty()) {
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    }

    QCOMPARE(mModel->insert(index, QStringLiteral("x")), warning.isEmpty());
    QCOMPARE(contents(), expected);
    const int changes = warning.isEmpty() ? 1 : 0;
    QCOMPARE(count.count(), changes);
    QCOMPARE(inserted.count(), changes);
    if (changes) {
        QCOMPARE(inserted.at(0).at(1).toInt(), index);
        QCOMPARE(inserted.at(0).at(2).toInt(), index);
    }
}

void tst_ObjectListModel::remove_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("warning");

    QTest::newRow("first") << 0 << QStringList { "b", "c" } << QString();
    QTest::newRow("last") << 2 << QStringList { "a", "b" } << QString();
    QTest::newRow("at count") << 3 << sAbc << outOfRange("remove", 3, 3);
    QTest::newRow("negative") << -1 << sAbc << outOfRange("remove", -1, 3);
}

void tst_ObjectListModel::remove()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);
    QFETCH(QString, warning);

    QSignalSpy removed(mModel, &QAbstractItemModel::rowsRemoved);
    QSignalSpy count(mModel, &ObjectListModelBase::countChanged);
    if (!warning.isEmpty()) {
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    }

    QCOMPARE(mModel->remove(index), warning.isEmpty());
    QCOMPARE(contents(), expected);
    const int changes = warning.isEmpty() ? 1 : 0;
    QCOMPARE(count.count(), changes);
    QCOMPARE(removed.count(), changes);
    if (changes) {
        QCOMPARE(removed.at(0).at(1).toInt(), index);
    }
}

void tst_ObjectListModel::move_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("destinationRow");
    QTest::addColumn<QString>("warning");

    // destinationRow is what rowsMoved reports: the row before which the value is placed,
    // counted before the move; -1 when no move is signalled.
    QTest::newRow("down by one") << 0 << 1 << QStringList { "b", "a", "c" } << 2 << QString();
    QTest::newRow("to the end") << 0 << 2 << QStringList { "b", "c", "a" } << 3 << QString();
    QTest::newRow("to the front") << 2 << 0 << QStringList { "c", "a", "b" } << 0 << QString();
    QTest::newRow("up by one") << 2 << 1 << QStringList { "a", "c", "b" } << 1 << QString();
    QTest::newRow("onto itself") << 1 << 1 << sAbc << -1 << QString();
    QTest::newRow("to past the end") << 0 << 3 << sAbc << -1 << outOfRange("move", 3, 3);
    QTest::newRow("from negative") << -1 << 0 << sAbc << -1 << outOfRange("move", -1, 3);
}

void tst_ObjectListModel::move()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QStringList, expected);
    QFETCH(int, destinationRow);
    QFETCH(QString, warning);

    QSignalSpy moved(mModel, &QAbstractItemModel::rowsMoved);
    QSignalSpy count(mModel, &ObjectListModelBase::countChanged);
    if (!warning.isEmpty()) {
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    }

    QCOMPARE(mModel->move(from, to), warning.isEmpty());
    QCOMPARE(contents(), expected);
    QCOMPARE(count.count(), 0);
    QCOMPARE(moved.count(), destinationRow < 0 ? 0 : 1);
    if (destinationRow >= 0) {
        QCOMPARE(moved.at(0).at(1).toInt(), from);
        QCOMPARE(moved.at(0).at(4).toInt(), destinationRow);
    }
}

void tst_ObjectListModel::getOutOfRange()
{
    QTest::ignoreMessage(QtWarningMsg, qPrintable(outOfRange("get", 3, 3)));
    QVERIFY(!mModel->get(3).isValid());
    QVERIFY(!mModel->data(mModel->index(3), ObjectListModelBase::ModelDataRole).isValid());
}

void tst_ObjectListModel::clear()
{
    QSignalSpy reset(mModel, &QAbstractItemModel::modelReset);
    QSignalSpy count(mModel, &ObjectListModelBase::countChanged);

    mModel->clear();
    QCOMPARE(mModel->getCount(), 0);
    QCOMPARE(reset.count(), 1);
    QCOMPARE(count.count(), 1);

    // Clearing an empty model is not a change.
    mModel->clear();
    QCOMPARE(reset.count(), 1);
    QCOMPARE(count.count(), 1);
}

void tst_ObjectListModel::invalidValueRefused()
{
    QTest::ignoreMessage(
        QtWarningMsg, "WARNING: ObjectListModel::insert: a value of type invalid cannot be stored.");
    QVERIFY(!mModel->append(QVariant()));
    QCOMPARE(contents(), sAbc);
}

void tst_ObjectListModel::roles()
{
    QObject object;
    mModel->append(QVariant::fromValue(&object));

    const QHash<int, QByteArray> names = mModel->roleNames();
    const int modelData = names.key("modelData", -1);
    const int objectRole = names.key("object", -1);
    QVERIFY(modelData >= 0);
    QVERIFY(objectRole >= 0);

    QCOMPARE(mModel->data(mModel->index(0), modelData).toString(), QStringLiteral("a"));
    // A string is no QObject: no "object" for it, instead of a null pointer or a conversion.
    QVERIFY(!mModel->data(mModel->index(0), objectRole).isValid());
    QCOMPARE(mModel->data(mModel->index(3), objectRole).value<QObject*>(), &object);
    QCOMPARE(mModel->data(mModel->index(3), modelData).value<QObject*>(), &object);
}

QTEST_GUILESS_MAIN(tst_ObjectListModel)
#include "tst_objectlistmodel.moc"
