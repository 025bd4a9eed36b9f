#include "ResourceCommand.h"

#include "Console.h"

#include "resources/BinaryResourceFile.h"
#include "resources/HmiGradientStop.h"
#include "resources/NodeColor.h"
#include "resources/NodeDefaults.h"
#include "resources/NodeFont.h"
#include "resources/NodeImage.h"
#include "resources/NodeRectangle.h"
#include "resources/NodeShader.h"
#include "resources/XmlResourceFile.h"

#include <QCommandLineParser>
#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QResource>
#include <QUuid>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace Hmi::Core::Tool {

namespace {

const QString sRootElement = QStringLiteral("NvkQtResourceFile");

const char sGroupUsage[] = "Usage: hmicore resource <subcommand> [options]\n"
                           "\n"
                           "Subcommands:\n"
                           "  compile FILE.xml -o FILE.dat [--base-path DIR]\n"
                           "           Write the binary form of an XML resource description.\n"
                           "  dump FILE\n"
                           "           Print every node of an XML or binary resource description, or of\n"
                           "           the description in a resource package (.rcc).\n"
                           "\n"
                           "Run \"hmicore resource <subcommand> --help\" for its options.\n";

// ---- Reading a description ------------------------------------------------------------------

bool isBinary(const QByteArray& aData)
{
    const qint32 magic = BinaryResourceFile::sMagic;
    // The magic is stored little-endian.
    const char bytes[4] = { char(magic & 0xff), char((magic >> 8) & 0xff), char((magic >> 16) & 0xff),
        char((magic >> 24) & 0xff) };
    return aData.startsWith(QByteArray::fromRawData(bytes, 4));
}

/**
 * The library reads any well-formed XML, warns about every element it does not know and ends up
 * with an empty description; for a tool a wrong file is an error, so check the root element
 * first. Also reports where the XML is broken, which the library only logs.
 */
QString xmlProblem(const QByteArray& aData)
{
    QXmlStreamReader reader(aData);
    while (!reader.atEnd() && !reader.isStartElement()) {
        reader.readNext();
    }
    if (!reader.isStartElement() || reader.name() != sRootElement) {
        return QStringLiteral("not a resource file");
    }
    return Tool::xmlProblem(reader);
}

/**
 * The hash stored in a binary file's header. Cache files carry the hash of their XML source;
 * passing it back lets the tool read those as well as the pre-built files with an empty hash.
 * False when the header itself is cut short.
 */
bool readHeader(const QByteArray& aData, qint32& aVersion, QByteArray& aHash)
{
    QDataStream stream(aData);
    stream.setVersion(QDataStream::Qt_5_6);
    stream.setByteOrder(QDataStream::LittleEndian);
    qint32 magic = 0;
    stream >> magic >> aVersion >> aHash;
    return stream.status() == QDataStream::Ok;
}

QString directoryOf(const QString& aPath)
{
    QString directory = QFileInfo(aPath).absolutePath();
    if (!directory.endsWith(QLatin1Char('/'))) {
        directory += QLatin1Char('/');
    }
    return directory;
}

/// The bytes of the description aPath, or an empty array with aReason set.
QByteArray readDescription(const QString& aPath, QString& aReason)
{
    aReason = unreadableReason(aPath);
    if (!aReason.isEmpty()) {
        return {};
    }
    QFile file(aPath);
    if (!file.open(QIODevice::ReadOnly)) {
        aReason = file.errorString();
        return {};
    }
    const QByteArray data = file.readAll();
    if (data.isEmpty()) {
        aReason = QStringLiteral("empty file");
    }
    return data;
}

/**
 * Loads the binary description aData read from aPath. With aPrebuiltOnly, a file that carries a
 * content hash (a cache file) is refused, as the resource manager refuses it inside a package.
 */
std::unique_ptr<ResourceFile> loadBinary(const QString& aPath, const QByteArray& aData,
    const QString& aBasePath, bool aPrebuiltOnly, QString& aReason)
{
    qint32 version = 0;
    QByteArray hash;
    if (!readHeader(aData, version, hash)) {
        aReason = QStringLiteral("damaged binary resource file");
        return {};
    }
    if (version != BinaryResourceFile::sVersion) {
        aReason = QStringLiteral("binary resource file version %1, this tool reads version %2")
                      .arg(version)
                      .arg(BinaryResourceFile::sVersion);
        return {};
    }
    if (aPrebuiltOnly && !hash.isEmpty()) {
        aReason = QStringLiteral("a cache file, not a pre-built binary resource file");
        return {};
    }
    auto binary = std::make_unique<BinaryResourceFile>();
    if (!binary->loadFile(aPath, aBasePath, hash)) {
        aReason = QStringLiteral("damaged binary resource file");
        return {};
    }
    return binary;
}

std::unique_ptr<ResourceFile> loadXml(
    const QString& aPath, const QByteArray& aData, const QString& aBasePath, QString& aReason)
{
    aReason = xmlProblem(aData);
    if (!aReason.isEmpty()) {
        return {};
    }
    auto xml = std::make_unique<XmlResourceFile>(aBasePath);
    if (!xml->loadFile(aPath)) {
        aReason = QStringLiteral("not a valid XML resource file");
        return {};
    }
    return xml;
}

/// Loads aPath as XML, or as binary when it starts with the magic and aAllowBinary is set.
std::unique_ptr<ResourceFile> loadDescription(
    const QString& aPath, const QString& aBasePath, bool aAllowBinary, QString& aReason)
{
    const QByteArray data = readDescription(aPath, aReason);
    if (data.isEmpty()) {
        return {};
    }
    if (isBinary(data)) {
        if (!aAllowBinary) {
            aReason = QStringLiteral("already a binary resource file");
            return {};
        }
        return loadBinary(aPath, data, aBasePath, false, aReason);
    }
    return loadXml(aPath, data, aBasePath, aReason);
}

bool isPackage(const QString& aPath)
{
    QFile file(aPath);
    return file.open(QIODevice::ReadOnly) && file.read(4) == "qres";
}

/**
 * A resource package registered with Qt's resource system for as long as the object lives, and
 * its description, chosen and read as the resource manager does: "<base name>.dat" when the
 * package holds it (a pre-built description), "<base name>.xml" otherwise, where the base name
 * ends at the package file name's first dot. Image and shader files resolve inside the package.
 */
class Package final
{
public:
    explicit Package(const QString& aPath)
        : mPath(QFileInfo(aPath).absoluteFilePath())
        // Unique, so that no other registration can shadow the package's files.
        , mRoot(QStringLiteral("/hmicore-dump-") + QUuid::createUuid().toString(QUuid::WithoutBraces))
    { }
    ~Package()
    {
        if (mRegistered) {
            QResource::unregisterResource(mPath, mRoot);
        }
    }
    Q_DISABLE_COPY(Package)

    /// What the resource manager prefixes the files of the package with.
    QString basePath() const { return QStringLiteral("qrc:") + mRoot + QLatin1Char('/'); }

    std::unique_ptr<ResourceFile> load(QString& aReason)
    {
        mRegistered = QResource::registerResource(mPath, mRoot);
        if (!mRegistered) {
            aReason = QStringLiteral("damaged resource package");
            return {};
        }
        const QString base = QFileInfo(mPath).baseName();
        const QString directory = QLatin1Char(':') + mRoot + QLatin1Char('/');
        const QString datPath = directory + base + QStringLiteral(".dat");
        const QString xmlPath = directory + base + QStringLiteral(".xml");
        const bool isDat = QFile::exists(datPath);
        if (!isDat && !QFile::exists(xmlPath)) {
            aReason = QStringLiteral("the package holds neither %1.dat nor %1.xml").arg(base);
            return {};
        }
        const QString path = isDat ? datPath : xmlPath;
        const QString name = path.mid(directory.size());
        QString reason;
        std::unique_ptr<ResourceFile> file;
        const QByteArray data = readDescription(path, reason);
        if (data.isEmpty()) {
            // reason says why.
        } else if (!isDat) {
            file = loadXml(path, data, basePath(), reason);
        } else if (isBinary(data)) {
            file = loadBinary(path, data, basePath(), true, reason);
        } else {
            reason = QStringLiteral("not a binary resource file");
        }
        if (!file) {
            aReason = name + QStringLiteral(" in the package: ") + reason;
        }
        return file;
    }

private:
    const QString mPath;
    const QString mRoot;
    bool mRegistered = false;
};

// ---- Formatting -----------------------------------------------------------------------------

// Most reals come from the XML as floats; printing such a value as a float gives "0.3", not
// "0.30000001192092896", while any other value is still printed exactly.
QString formatReal(double aValue)
{
    const float asFloat = float(aValue);
    if (double(asFloat) == aValue) {
        // QString::number() has no shortest form for floats: take the fewest digits that read
        // back as the same float (at most 9 are needed).
        for (int precision = 1; precision < 9; ++precision) {
            const QString text = QString::number(aValue, 'g', precision);
            if (text.toFloat() == asFloat) {
                // Printed again so that 10 does not come out as "1e+01".
                return QString::number(text.toDouble(), 'g', QLocale::FloatingPointShortest);
            }
        }
        return QString::number(aValue, 'g', 9);
    }
    return QString::number(aValue, 'g', QLocale::FloatingPointShortest);
}

// The notation of the resource files: hexadecimal red, green, blue, alpha.
QString formatColor(const QColor& aColor)
{
    if (!aColor.isValid()) {
        return QStringLiteral("invalid");
    }
    const QColor rgb = aColor.toRgb();
    return QStringLiteral("%1,%2,%3,%4")
        .arg(rgb.red(), 2, 16, QLatin1Char('0'))
        .arg(rgb.green(), 2, 16, QLatin1Char('0'))
        .arg(rgb.blue(), 2, 16, QLatin1Char('0'))
        .arg(rgb.alpha(), 2, 16, QLatin1Char('0'));
}

QString formatSize(const QSize& aSize)
{
    return QString::number(aSize.width()) + QLatin1Char('x') + QString::number(aSize.height());
}

QString formatSize(const QSizeF& aSize)
{
    return formatReal(aSize.width()) + QLatin1Char('x') + formatReal(aSize.height());
}

QString formatPoint(const QPointF& aPoint)
{
    return formatReal(aPoint.x()) + QLatin1Char(',') + formatReal(aPoint.y());
}

QString formatMargins(const QMargins& aMargins)
{
    return QStringLiteral("left %1, top %2, right %3, bottom %4")
        .arg(aMargins.left())
        .arg(aMargins.top())
        .arg(aMargins.right())
        .arg(aMargins.bottom());
}

QString formatVariant(const QVariant& aValue)
{
    if (!aValue.isValid()) {
        return QStringLiteral("(invalid)");
    }
    QString text;
    switch (aValue.userType()) {
    case QMetaType::Bool:
        text = formatBool(aValue.toBool());
        break;
    case QMetaType::QString:
        text = quoted(aValue.toString());
        break;
    case QMetaType::Double:
    case QMetaType::Float:
        text = formatReal(aValue.toDouble());
        break;
    default:
        text = aValue.toString();
        break;
    }
    return text + QStringLiteral(" (") + QLatin1String(aValue.typeName()) + QLatin1Char(')');
}

QString gradientTypeName(int aType)
{
    switch (aType) {
    case 0:
        return QStringLiteral("conical");
    case 1:
        return QStringLiteral("linear");
    case 2:
        return QStringLiteral("radial");
    case NodeRectangle::sGradientTypeNone:
        return QStringLiteral("none");
    default:
        return QString::number(aType);
    }
}

/**
 * An image file as seen from the description: relative to the base path when it lies under it.
 * The XML form then shows the name as written and the binary form shows the same name, except
 * for a directory part, which the binary form does not keep.
 */
QString formatSource(const QUrl& aSource, const QString& aBasePath)
{
    if (aSource.isLocalFile()) {
        const QString path = aSource.toLocalFile();
        return quoted(path.startsWith(aBasePath) ? path.mid(aBasePath.size()) : path);
    }
    // Inside a package: the base path is "qrc:/<root>/". Compared decoded, so that a file name
    // with URL characters prints as written.
    static const QString sQrc = QStringLiteral("qrc:");
    if (aSource.scheme() == QLatin1String("qrc") && aBasePath.startsWith(sQrc)) {
        const QString path = aSource.path(QUrl::FullyDecoded);
        const QString root = aBasePath.mid(sQrc.size());
        if (path.startsWith(root)) {
            return quoted(path.mid(root.size()));
        }
    }
    return quoted(aSource.toString(QUrl::PreferLocalFile));
}

// ---- One block per node ---------------------------------------------------------------------

class Dumper
{
public:
    explicit Dumper(const QString& aBasePath)
        : mBasePath(aBasePath)
    { }

    void field(const char* aName, const QString& aValue)
    {
        mLines.append(QStringLiteral("  ") + QLatin1String(aName) + QStringLiteral(": ") + aValue);
    }

    void node(const QString& aKind, const Node& aNode)
    {
        if (!mLines.isEmpty()) {
            mLines.append(QString());
        }
        mLines.append(aKind + QLatin1Char(' ') + quoted(aNode.getName()));
    }

    void color(const NodeColor& aNode) { field("color", formatColor(aNode.getColor())); }

    void defaults(const NodeDefaults& aNode)
    {
        const QMap<QString, QVariant>& values = aNode.getDefaults();
        field("properties", QString::number(values.size()));
        for (auto it = values.cbegin(); it != values.cend(); ++it) {
            mLines.append(QStringLiteral("  property ") + quoted(it.key()) + QStringLiteral(" = ")
                + formatVariant(it.value()));
        }
    }

    // The resolved font, not the requested values: that is what the handles hand to QML.
    void font(const NodeFont& aNode)
    {
        const QFont& font = aNode.getFont();
        field("family", quoted(font.family()));
        field("pixelSize", QString::number(font.pixelSize()));
        field("pointSize", formatReal(font.pointSizeF()));
        field("weight", QString::number(font.weight()));
        field("bold", formatBool(font.bold()));
        field("italic", formatBool(font.italic()));
        field("underline", formatBool(font.underline()));
        field("overline", formatBool(font.overline()));
        field("strikeOut", formatBool(font.strikeOut()));
    }

    void image(const NodeImage& aNode)
    {
        field("source", formatSource(aNode.getSource(), mBasePath));
        field("sourceSize", formatSize(aNode.getSourceSize()));
        field("frameCount", QString::number(aNode.getFrameCount()));
        field("frameSize", formatSize(aNode.getFrameSize()));
        field("implicitSize", formatSize(aNode.getImplicitSize()));
        field("paddingExternal", formatMargins(aNode.getPaddingExternal()));
        field("paddingInternal", formatMargins(aNode.getPaddingInternal()));
        field("tileMargins", formatMargins(aNode.getTileMargins()));
        field("defaultsName", quoted(aNode.getDefaultsName()));
    }

    void rectangle(const NodeRectangle& aNode)
    {
        image(aNode);
        field("color", formatColor(aNode.getColor()));
        field("colorSet", formatBool(aNode.getColorSet()));
        field("borderWidth", QString::number(aNode.getBorderWidth()));
        field("borderColor", formatColor(aNode.getBorderColor()));
        field("borderColorSet", formatBool(aNode.getBorderColorSet()));
        field("radius", formatReal(aNode.getRadius()));
        field("gradientType", gradientTypeName(aNode.getGradientType()));
        field("gradientAngle", formatReal(aNode.getGradientAngle()));
        field("gradientBegin", formatPoint(aNode.getGradientBegin()));
        field("gradientEnd", formatPoint(aNode.getGradientEnd()));
        field("gradientEndSet", formatBool(aNode.getGradientEndSet()));
        field("gradientStops", QString::number(aNode.getGradientStopsCount()));
        // One line per stop, so that a stop that changed shows as exactly one line.
        for (int index = 0; index < aNode.getGradientStopsCount(); ++index) {
            const HmiGradientStop* stop = aNode.getGradientStopAt(index);
            mLines.append(QStringLiteral("  gradientStop %1: %2 %3")
                              .arg(index)
                              .arg(formatReal(stop->getPosition()), formatColor(stop->getColor())));
        }
    }

    void shader(const NodeShader& aNode)
    {
        field("defaultsName", quoted(aNode.getDefaultsName()));
        field("meshResolution", formatSize(aNode.getMeshResolution()));
        field("shaderFragment", quoted(aNode.getShaderFragment()));
        field("shaderFragmentFile", formatBool(aNode.isShaderFragmentFile()));
        field("shaderVertex", quoted(aNode.getShaderVertex()));
        field("shaderVertexFile", formatBool(aNode.isShaderVertexFile()));
        field("supportsAtlasTextures", formatBool(aNode.getSupportsAtlasTextures()));
    }

    void file(const ResourceFile& aFile)
    {
        static const char* const sKinds[ResourceTypeCount]
            = { "color", "defaults", "font", "image", "rectangle", "shader" };
        for (int type = 0; type < ResourceTypeCount; ++type) {
            const ResourceFile::NodeTable& nodes = aFile.getNodes(ResourceType(type));
            // The order the binary form is written in, so that both forms list alike.
            QStringList names = nodes.keys();
            std::sort(names.begin(), names.end());
            for (const QString& name : qAsConst(names)) {
                const Node& node = *nodes.value(name);
                this->node(QLatin1String(sKinds[type]), node);
                switch (ResourceType(type)) {
                case ResourceType::Color:
                    color(static_cast<const NodeColor&>(node));
                    break;
                case ResourceType::Defaults:
                    defaults(static_cast<const NodeDefaults&>(node));
                    break;
                case ResourceType::Font:
                    font(static_cast<const NodeFont&>(node));
                    break;
                case ResourceType::Image:
                    image(static_cast<const NodeImage&>(node));
                    break;
                case ResourceType::Rectangle:
                    rectangle(static_cast<const NodeRectangle&>(node));
                    break;
                case ResourceType::Shader:
                    shader(static_cast<const NodeShader&>(node));
                    break;
                }
            }
        }
    }

    const QStringList& lines() const { return mLines; }

private:
    QString mBasePath;
    QStringList mLines;
};

// ---- Subcommands ----------------------------------------------------------------------------

int runCompile(const QStringList& aArguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes the binary form of an XML resource description, to be shipped instead of it.\n"
                       "The binary form keeps only the file name of each image, without its directory."));
    const QCommandLineOption helpOption = addHelpOption(parser);
    const QCommandLineOption outputOption({ QStringLiteral("o"), QStringLiteral("output") },
        QStringLiteral("The binary file to write."), QStringLiteral("FILE"));
    const QCommandLineOption basePathOption(QStringLiteral("base-path"),
        QStringLiteral("The directory that image and shader file names resolve against while reading\n"
                       "(default: the directory of the XML file)."),
        QStringLiteral("DIR"));
    parser.addOptions({ outputOption, basePathOption });
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The XML resource description."));

    const QString synopsis = QStringLiteral("hmicore resource compile [options] FILE -o FILE");
    QString input;
    const int parsed
        = parseOneFile(parser, helpOption, QStringLiteral("hmicore resource compile"), synopsis, aArguments, input);
    if (parsed != sRun) {
        return parsed;
    }
    const QString output = parser.value(outputOption);
    if (output.isEmpty()) {
        return usageError(QStringLiteral("no output file given (-o FILE)"), usageText(parser, synopsis));
    }

    QString basePath = parser.isSet(basePathOption) ? parser.value(basePathOption) : directoryOf(input);
    // File names are appended to the base path as they are.
    if (!basePath.isEmpty() && !basePath.endsWith(QLatin1Char('/'))) {
        basePath += QLatin1Char('/');
    }

    QString reason;
    const std::unique_ptr<ResourceFile> source = loadDescription(input, basePath, false, reason);
    if (!source) {
        return fail(QStringLiteral("cannot load %1: %2").arg(input, reason));
    }
    // No content hash: the file is a description of its own, not the cache of an XML one.
    BinaryResourceFile binary;
    if (!binary.saveFile(output, QByteArray(), *source)) {
        return fail(QStringLiteral("cannot write %1: %2").arg(output, writeFailureReason(output)));
    }
    return ExitSuccess;
}

int runDump(const QStringList& aArguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Prints every node of an XML or binary resource description, one block per node, kind by\n"
        "kind and name by name. An XML description and its compiled form print the same text, but\n"
        "for what the binary form does not keep: the directory part of an image file, an invalid\n"
        "colour (read back as opaque black) and the fraction of a font's point size.\n"
        "Given a resource package (.rcc), prints the description in it that the resource manager\n"
        "would read: NAME.dat, else NAME.xml, where NAME is the package's file name up to its\n"
        "first dot. File names then print relative to the package."));
    const QCommandLineOption helpOption = addHelpOption(parser);
    parser.addPositionalArgument(QStringLiteral("FILE"),
        QStringLiteral("The resource description, XML or binary, or a resource package."));

    QString input;
    const int parsed = parseOneFile(parser, helpOption, QStringLiteral("hmicore resource dump"),
        QStringLiteral("hmicore resource dump [options] FILE"), aArguments, input);
    if (parsed != sRun) {
        return parsed;
    }
    QString basePath = directoryOf(input);
    QString reason;
    std::unique_ptr<ResourceFile> file;
    // Registered until the dump is printed.
    std::unique_ptr<Package> package;
    if (isPackage(input)) {
        package = std::make_unique<Package>(input);
        basePath = package->basePath();
        file = package->load(reason);
    } else {
        file = loadDescription(input, basePath, true, reason);
    }
    if (!file) {
        return fail(QStringLiteral("cannot load %1: %2").arg(input, reason));
    }
    Dumper dumper(basePath);
    dumper.file(*file);
    for (const QString& line : dumper.lines()) {
        printLine(line);
    }
    return ExitSuccess;
}

} // namespace

int runResourceCommand(const QStringList& aArguments)
{
    return runSubcommand(aArguments, sGroupUsage, { { "compile", &runCompile }, { "dump", &runDump } });
}

} // namespace Hmi::Core::Tool
