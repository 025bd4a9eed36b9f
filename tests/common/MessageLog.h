#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

/**
 * Records the messages of one type (warnings unless told otherwise) logged while it lives. Qt Test
 * 5.15 cannot fail a test on an unexpected warning, nor tell that an expected one came once too
 * often, so such tests compare the record. Messages are passed on to Qt Test's own handler, so
 * QTest::ignoreMessage() keeps working alongside.
 */
class MessageLog
{
public:
    explicit MessageLog(QtMsgType aType = QtWarningMsg)
    {
        sType = aType;
        sMessages.clear();
        sPrevious = qInstallMessageHandler(&handle);
    }
    ~MessageLog() { qInstallMessageHandler(sPrevious); }
    Q_DISABLE_COPY(MessageLog)

    int getCount() const { return sMessages.size(); }
    QStringList getMessages() const { return sMessages; }

private:
    static void handle(QtMsgType aType, const QMessageLogContext& aContext, const QString& aMessage)
    {
        if (aType == sType) {
            sMessages.append(aMessage);
        }
        if (sPrevious) {
            sPrevious(aType, aContext, aMessage);
        }
    }

    static inline QtMsgType sType = QtWarningMsg;
    static inline QStringList sMessages;
    static inline QtMessageHandler sPrevious = nullptr;
};
