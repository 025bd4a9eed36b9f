#pragma once

#include "handles/HandleText.h"

#include <QVariantList>

namespace Hmi::Core {

/**
 * A text built from a format text whose numbered placeholders ("{1:20}", "{02:9}") are filled
 * with parameters: other text handles, whose current text is inserted, or plain values.
 *
 * \code
 * HandleTextWithParameters {
 *     handle: HandleTextResource { name: "STR_DISTANCE_TO" }   // "{1:9} km to {2:30}"
 *     parameters: [ distance.toFixed(1), destinationHandle ]
 * }
 * \endcode
 *
 * The text is computed on every read; a change of the format, the parameter list or any
 * parameter handle's text is announced as textChanged().
 */
class HMICORE_EXPORT HandleTextWithParameters : public HandleText
{
    Q_OBJECT
    Q_PROPERTY(Hmi::Core::HandleText* handle READ getHandle WRITE setHandle NOTIFY handleChanged)
    Q_PROPERTY(QVariantList parameters READ getParameters WRITE setParameters NOTIFY parametersChanged)

public:
    explicit HandleTextWithParameters(QObject* aParent = nullptr);
    ~HandleTextWithParameters() override;
    Q_DISABLE_COPY(HandleTextWithParameters)

    HandleText* getHandle() const { return mHandle; }
    /// Ignores a null handle and the handle already set.
    void setHandle(HandleText* aHandle);
    const QVariantList& getParameters() const { return mParameters; }
    void setParameters(const QVariantList& aParameters);

    QString getText() const override;

signals:
    void handleChanged();
    void parametersChanged();

public slots:
    void onHandleOrParametersChanged();

private:
    void connectText(HandleText* aHandle);
    void disconnectText(HandleText* aHandle);

    HandleText* mHandle = nullptr;
    QVariantList mParameters;
};

} // namespace Hmi::Core
