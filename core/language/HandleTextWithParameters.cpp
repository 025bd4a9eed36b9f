#include "language/HandleTextWithParameters.h"

#include "language/HandleTextMutable.h"

#include <QRegularExpression>

#include <deque>
#include <mutex>

namespace Hmi::Core {

namespace {

    HandleText* handleOf(const QVariant& aValue)
    {
        return aValue.canConvert<HandleText*>() ? aValue.value<HandleText*>() : nullptr;
    }

    const QRegularExpression& placeholderPattern(int aNumber)
    {
        // Built once per parameter number; a deque keeps handed-out references valid as it grows.
        static std::deque<QRegularExpression> sPatterns;
        static std::mutex sLock;
        std::lock_guard<std::mutex> lock(sLock);
        while (int(sPatterns.size()) < aNumber) {
            sPatterns.emplace_back(QStringLiteral("\\{0{0,}%1\\:\\d{1,}\\}").arg(sPatterns.size() + 1));
        }
        return sPatterns[size_t(aNumber - 1)];
    }

} // namespace

HandleTextWithParameters::HandleTextWithParameters(QObject* aParent)
    : HandleText(aParent)
{
}

HandleTextWithParameters::~HandleTextWithParameters() = default;

void HandleTextWithParameters::setHandle(HandleText* aHandle)
{
    if (!aHandle || aHandle == mHandle) {
        return;
    }
    disconnectText(mHandle);
    mHandle = aHandle;
    connectText(mHandle);
    emit handleChanged();
    emit textChanged();
}

void HandleTextWithParameters::setParameters(const QVariantList& aParameters)
{
    if (aParameters == mParameters) {
        return;
    }
    for (const QVariant& parameter : qAsConst(mParameters)) {
        disconnectText(handleOf(parameter));
    }
    mParameters = aParameters;
    for (const QVariant& parameter : qAsConst(mParameters)) {
        connectText(handleOf(parameter));
    }
    emit parametersChanged();
    emit textChanged();
}

QString HandleTextWithParameters::getText() const
{
    if (!mHandle) {
        return QString();
    }
    // Later parameters fill placeholders that earlier ones inserted, never the other way round.
    QString text = mHandle->getText();
    for (int i = 0; i < mParameters.size(); ++i) {
        const QVariant& parameter = mParameters.at(i);
        if (HandleText* handle = handleOf(parameter)) {
            text.replace(placeholderPattern(i + 1), handle->getText());
        } else if (parameter.canConvert<QString>()) {
            text.replace(placeholderPattern(i + 1), parameter.toString());
        }
    }
    return text;
}

void HandleTextWithParameters::onHandleOrParametersChanged()
{
    emit textChanged();
}

void HandleTextWithParameters::connectText(HandleText* aHandle)
{
    if (auto* mutableHandle = qobject_cast<HandleTextMutable*>(aHandle)) {
        connect(mutableHandle, &HandleTextMutable::textChanged, this,
            &HandleTextWithParameters::onHandleOrParametersChanged);
    } else if (aHandle) {
        connect(aHandle, &HandleText::textChanged, this, &HandleTextWithParameters::onHandleOrParametersChanged);
    }
}

void HandleTextWithParameters::disconnectText(HandleText* aHandle)
{
    if (auto* mutableHandle = qobject_cast<HandleTextMutable*>(aHandle)) {
        disconnect(mutableHandle, &HandleTextMutable::textChanged, this,
            &HandleTextWithParameters::onHandleOrParametersChanged);
    } else if (aHandle) {
        disconnect(aHandle, &HandleText::textChanged, this, &HandleTextWithParameters::onHandleOrParametersChanged);
    }
}

} // namespace Hmi::Core
