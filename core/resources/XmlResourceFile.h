#pragma once

#include "resources/ResourceFile.h"
#include "resources/XmlLoader.h"

#include <QSharedPointer>

class QIODevice;

namespace Hmi::Core {

class XmlNode;

/**
 * Reads an XML resource description: a root element holding one element per node (color,
 * defaults, font, image, animation, rectangle, shader). Problems are logged and the rest of the
 * file is still read.
 */
class HMICORE_EXPORT XmlResourceFile final : public XmlLoader, public ResourceFile
{
public:
    explicit XmlResourceFile(const QString& aBasePath = QString());
    ~XmlResourceFile() override;

    /// Reads a plain XML file; false when it cannot be opened or is not well-formed.
    bool loadFile(const QString& aPath);
    bool loadData(const QByteArray& aData);

private:
    void registerElement(const QString& aTag, ResourceType aType);
    void finishElement();

    QSharedPointer<XmlNode> mCurrentNode;
    ResourceType mCurrentType = ResourceType::Color;
};

} // namespace Hmi::Core
