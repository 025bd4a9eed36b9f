#include "models/QVariantObjectListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

using Hmi::Core::ObjectListModelBase;
using Hmi::Core::QVariantObjectListModel;

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

class tst_ObjectListModel : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        mModel = new QVariantObjectListModel(this);
        for (const QString& value : sAbc) {
            mModel->append(value);
        }
        // Checks every change signal against the model's state as the test goes.
        mTester = new QAbstractItemModelTester(
            mModel, QAbstractItemModelTester::FailureReportingMode::QtTest, this);
    }

    void cleanup()
    {
        delete mTester;
        delete mModel;
    }

    // Each row is one call on the model holding a, b and c.
    void edit_data()
    {
        QTest::addColumn<QString>("call");
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("expected"); // the values, one letter each
        // What rowsMoved reports: the row before which the value is placed, counted before the
        // move; -1 when no move is signalled.
        QTest::addColumn<int>("destinationRow");
        QTest::addColumn<QString>("warning");

        // clang-format off
        QTest::newRow("insert at the front") << "insert" << 0 << 0 << "xabc" << -1 << QString();
        QTest::newRow("insert in the middle") << "insert" << 2 << 0 << "abxc" << -1 << QString();
        QTest::newRow("insert at count appends") << "insert" << 3 << 0 << "abcx" << -1 << QString();
        QTest::newRow("insert past count") << "insert" << 4 << 0 << "abc" << -1 << outOfRange("insert", 4, 3);
        QTest::newRow("insert at -1") << "insert" << -1 << 0 << "abc" << -1 << outOfRange("insert", -1, 3);
        QTest::newRow("remove first") << "remove" << 0 << 0 << "bc" << -1 << QString();
        QTest::newRow("remove last") << "remove" << 2 << 0 << "ab" << -1 << QString();
        QTest::newRow("remove at count") << "remove" << 3 << 0 << "abc" << -1 << outOfRange("remove", 3, 3);
        QTest::newRow("remove at -1") << "remove" << -1 << 0 << "abc" << -1 << outOfRange("remove", -1, 3);
        QTest::newRow("move down by one") << "move" << 0 << 1 << "bac" << 2 << QString();
        QTest::newRow("move to the end") << "move" << 0 << 2 << "bca" << 3 << QString();
        QTest::newRow("move to the front") << "move" << 2 << 0 << "cab" << 0 << QString();
        QTest::newRow("move onto itself") << "move" << 1 << 1 << "abc" << -1 << QString();
        QTest::newRow("move past the end") << "move" << 0 << 3 << "abc" << -1 << outOfRange("move", 3, 3);
        QTest::newRow("move from -1") << "move" << -1 << 0 << "abc" << -1 << outOfRange("move", -1, 3);
        QTest::newRow("get at count") << "get" << 3 << 0 << "abc" << -1 << outOfRange("get", 3, 3);
        // clang-format on
    }

    // The model tester checks the inserted and removed rows that the signals name.
    void edit()
    {
        QFETCH(QString, call);
        QFETCH(int, index);
        QFETCH(int, to);
        QFETCH(QString, expected);
        QFETCH(int, destinationRow);
        QFETCH(QString, warning);

        QSignalSpy moved(mModel, &QAbstractItemModel::rowsMoved);
        QSignalSpy count(mModel, &ObjectListModelBase::countChanged);
        if (!warning.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        }
        const bool done = call == QLatin1String("insert") ? mModel->insert(index, QStringLiteral("x"))
            : call == QLatin1String("remove")             ? mModel->remove(index)
            : call == QLatin1String("move")               ? mModel->move(index, to)
                                                          : mModel->get(index).isValid();
        QCOMPARE(done, warning.isEmpty());
        QCOMPARE(contents().join(QString()), expected);
        QCOMPARE(count.count(), expected.size() == 3 ? 0 : 1);
        QCOMPARE(moved.count(), destinationRow < 0 ? 0 : 1);
        if (destinationRow >= 0) {
            QCOMPARE(moved.at(0).at(1).toInt(), index);
            QCOMPARE(moved.at(0).at(4).toInt(), destinationRow);
        }
    }

    void clear()
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

    void invalidValueRefused()
    {
        QTest::ignoreMessage(
            QtWarningMsg, "WARNING: ObjectListModel::insert: a value of type invalid cannot be stored.");
        QVERIFY(!mModel->append(QVariant()));
        QCOMPARE(contents(), sAbc);
    }

    void roles()
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

private:
    QStringList contents() const
    {
        QStringList values;
        for (int i = 0; i < mModel->getCount(); ++i) {
            values << mModel->get(i).toString();
        }
        return values;
    }

    QVariantObjectListModel* mModel = nullptr;
    QAbstractItemModelTester* mTester = nullptr;
};

QTEST_GUILESS_MAIN(tst_ObjectListModel)
#include "tst_objectlistmodel.moc"
