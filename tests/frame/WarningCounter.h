#pragma once

#include <QString>
#include <QtGlobal>

/**
 * Counts the warnings logged while it lives. Qt Test 5.15 cannot fail a test on an unexpected
 * warning, so tests that must stay silent compare the count. Messages are passed on to Qt Test's
 * own handler, so QTest::ignoreMessage() keeps working alongside.
 */
class WarningCounter
{
public:
    WarningCounter()
    {
        sCount = 0;
        sPrevious = qInstallMessageHandler(&handle);
    }
    ~WarningCounter() { qInstallMessageHandler(sPrevious); }
    Q_DISABLE_COPY(WarningCounter)

    int getCount() const { return sCount; }

private:
    static void handle(QtMsgType aType, const QMessageLogContext& aContext, const QString& aMessage)
    {
        if (aType == QtWarningMsg) {
            ++sCount;
        }
        if (sPrevious) {
            sPrevious(aType, aContext, aMessage);
        }
    }

    static inline int sCount = 0;
    static inline QtMessageHandler sPrevious = nullptr;
};
