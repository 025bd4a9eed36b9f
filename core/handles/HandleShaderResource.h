#pragma once

#include "handles/HandleShader.h"
#include "handles/ResourceHandleState.h"

namespace Hmi::Core {

/**
 * Shader of the current theme by name. A fragment or vertex shader that the theme gives as a file
 * name (relative to the package) is read and returned as source code, which ShaderEffect takes
 * on every Qt 5 backend.
 */
class HMICORE_EXPORT HandleShaderResource : public HandleShader
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(bool nameExists READ getNameExists NOTIFY nameExistsChanged)

public:
    explicit HandleShaderResource(QObject* aParent = nullptr);
    ~HandleShaderResource() override;
    Q_DISABLE_COPY(HandleShaderResource)

    QString getName() const { return mState.getName(); }
    void setName(const QString& aName) { mState.setName(aName); }
    bool getNameExists() const { return mState.getNameExists(); }

    QString getDefaultsName() const override;
    QSize getMeshResolution() const override;
    QString getShaderFragment() const override;
    QString getShaderVertex() const override;
    bool getSupportsAtlasTextures() const override;

    /// Stops following theme changes and lets go of the node until unfreeze().
    Q_INVOKABLE void freeze() { mState.freeze(); }
    /// Follows theme changes again and re-reads the value now.
    Q_INVOKABLE void unfreeze() { mState.unfreeze(); }

public slots:
    void onResourceChanged() { mState.onResourceChanged(); }

signals:
    void nameChanged();
    void nameExistsChanged();

private:
    ResourceHandleState mState;
};

} // namespace Hmi::Core
