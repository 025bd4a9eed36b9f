#pragma once

// The resource description the benchmarks load: the size of a large product theme, with every
// node kind in realistic proportions. The same seed gives the same description on every run.

#include <QByteArray>
#include <QRandomGenerator>
// Brings in QStringBuilder, which the byte array concatenations below go through.
#include <QString>
#include <QtGlobal>

namespace Bench {

struct Counts
{
    int colors = 20000;
    int fonts = 2000;
    int defaults = 2000;
    int propertiesPerDefaults = 5;
    int images = 5000;
    int rectangles = 2000;
    int shaders = 200;

    /// Every node count times aScale, and at least 1.
    Counts scaled(double aScale) const
    {
        const auto scale = [aScale](int aCount) { return qMax(1, int(aCount * aScale + 0.5)); };
        Counts counts = *this;
        counts.colors = scale(colors);
        counts.fonts = scale(fonts);
        counts.defaults = scale(defaults);
        counts.images = scale(images);
        counts.rectangles = scale(rectangles);
        counts.shaders = scale(shaders);
        return counts;
    }

    int nodes() const { return colors + fonts + defaults + images + rectangles + shaders; }
};

const char* const sAreas[] = { "home", "media", "climate", "navigation", "phone", "settings", "vehicle",
    "camera", "assist", "charging" };
const char* const sRoles[] = { "background", "text", "textPressed", "textDisabled", "icon", "iconPressed",
    "border", "highlight", "separator", "shadow", "badge", "progress" };

// Fonts that exist here and match exactly: an inexact match costs a warning per node, which is
// not what a shipped theme looks like.
const char* const sFamilies[] = { "DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono" };

class Generator
{
public:
    explicit Generator(const Counts& aCounts)
        : mCounts(aCounts)
    { }

    QByteArray xml()
    {
        mOut.reserve(32 * 1024 * 1024);
        mOut += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<NvkQtResourceFile>\n";
        for (int i = 0; i < mCounts.colors; ++i) {
            color(i);
        }
        for (int i = 0; i < mCounts.fonts; ++i) {
            font(i);
        }
        for (int i = 0; i < mCounts.defaults; ++i) {
            defaults(i);
        }
        for (int i = 0; i < mCounts.images; ++i) {
            image(i);
        }
        for (int i = 0; i < mCounts.rectangles; ++i) {
            rectangle(i);
        }
        for (int i = 0; i < mCounts.shaders; ++i) {
            shader(i);
        }
        mOut += "</NvkQtResourceFile>\n";
        return mOut;
    }

private:
    int random(int aBound) { return int(mRandom.bounded(aBound)); }

    QByteArray name(const char* aKind, int aIndex)
    {
        return QByteArray(sAreas[aIndex % 10]) + '/' + aKind + '/' + sRoles[(aIndex / 10) % 12]
            + QByteArray::number(aIndex);
    }

    void tag(const char* aTag, const QByteArray& aText)
    {
        mOut += "    <";
        mOut += aTag;
        mOut += '>';
        mOut += aText;
        mOut += "</";
        mOut += aTag;
        mOut += ">\n";
    }

    void tag(const char* aTag, int aValue) { tag(aTag, QByteArray::number(aValue)); }

    QByteArray colorText(bool aAlpha)
    {
        QByteArray text = QByteArray::number(random(256), 16) + ',' + QByteArray::number(random(256), 16)
            + ',' + QByteArray::number(random(256), 16);
        if (aAlpha) {
            text += ',' + QByteArray::number(random(256), 16);
        }
        return text;
    }

    void open(const char* aElement, const QByteArray& aName)
    {
        mOut += "  <";
        mOut += aElement;
        mOut += ">\n";
        tag("handle", aName);
    }

    void close(const char* aElement)
    {
        mOut += "  </";
        mOut += aElement;
        mOut += ">\n";
    }

    void color(int aIndex)
    {
        open("color", name("color", aIndex));
        tag("value", colorText(aIndex % 4 == 0));
        close("color");
    }

    void font(int aIndex)
    {
        open("font", name("font", aIndex));
        const int family = random(3);
        tag("family", sFamilies[family]);
        tag("pixelSize", 10 + random(40));
        if (random(3) == 0) {
            tag("bold", "true");
        }
        if (family == 1 && random(4) == 0) {
            tag("italic", "true");
        }
        if (random(10) == 0) {
            tag("underline", "true");
        }
        close("font");
    }

    void defaults(int aIndex)
    {
        open("defaults", name("defaults", aIndex));
        static const char* const sNames[] = { "enabled", "autoRepeat", "repeatInterval", "spacing", "label",
            "visible", "opacity", "clickTone" };
        for (int p = 0; p < mCounts.propertiesPerDefaults; ++p) {
            QByteArray value;
            switch (random(4)) {
            case 0:
                value = "false";
                break;
            case 1:
                value = "true";
                break;
            case 2:
                value = QByteArray::number(random(1000));
                break;
            default:
                value = "tone_" + QByteArray::number(random(50));
                break;
            }
            mOut += "    <property name=\"" + QByteArray(sNames[(aIndex + p) % 8]) + QByteArray::number(p)
                + "\">" + value + "</property>\n";
        }
        close("defaults");
    }

    void imageBody(int aIndex, bool aRequireFile)
    {
        if (aRequireFile || random(2) == 0) {
            tag("file", "img_" + QByteArray::number(aIndex) + ".png");
        }
        const int width = 16 + random(240);
        const int height = 16 + random(240);
        if (random(10) == 0) {
            tag("frameCount", 8);
            tag("frameWidth", width);
            tag("frameHeight", height);
            tag("width", width * 8);
        } else {
            tag("width", width);
        }
        tag("height", height);
        if (random(3) == 0) {
            tag("paddingExternalLeft", random(16));
            tag("paddingExternalTop", random(16));
            tag("paddingExternalRight", random(16));
            tag("paddingExternalBottom", random(16));
        }
        if (random(5) == 0) {
            tag("tileLeftMargin", random(16));
            tag("tileTopMargin", random(16));
            tag("tileRightMargin", random(16));
            tag("tileBottomMargin", random(16));
        }
        if (random(8) == 0) {
            tag("defaultsName", name("defaults", random(qMax(1, mCounts.defaults))));
        }
    }

    void image(int aIndex)
    {
        open("image", name("image", aIndex));
        imageBody(aIndex, true);
        close("image");
    }

    void rectangle(int aIndex)
    {
        open("rectangle", name("rectangle", aIndex));
        if (random(4) == 0) {
            imageBody(aIndex, false);
        }
        tag("value", colorText(false));
        if (random(2) == 0) {
            tag("borderColor", colorText(true));
            tag("borderWidth", 1 + random(3));
        }
        tag("radius", random(16));
        const bool linear = random(3) != 0;
        tag("gradientType", linear ? "linear" : "radial");
        tag("gradientAngle", random(360));
        tag("gradientBeginX", "0");
        tag("gradientBeginY", "0");
        tag("gradientEndX", linear ? "0" : "0.5");
        tag("gradientEndY", "1");
        const int stops = 2 + random(3);
        for (int s = 0; s < stops; ++s) {
            mOut += "    <gradientStop position=\"" + QByteArray::number(double(s) / (stops - 1)) + "\">"
                + colorText(s == stops - 1) + "</gradientStop>\n";
        }
        close("rectangle");
    }

    void shader(int aIndex)
    {
        open("shader", name("shader", aIndex));
        tag("meshResolutionWidth", 1 + random(8));
        tag("meshResolutionHeight", 1 + random(8));
        tag("supportsAtlasTextures", random(2) == 0 ? "true" : "false");
        if (random(4) == 0) {
            mOut += "    <shaderFragment file=\"true\">effect_" + QByteArray::number(aIndex)
                + ".frag</shaderFragment>\n";
        } else {
            mOut += "    <shaderFragment>varying highp vec2 qt_TexCoord0;\n"
                    "uniform sampler2D source;\n"
                    "uniform lowp float qt_Opacity;\n"
                    "uniform lowp float strength;\n"
                    "void main() {\n"
                    "    lowp vec4 c = texture2D(source, qt_TexCoord0);\n"
                    "    lowp float g = dot(c.rgb, vec3(0.299, 0.587, 0.114));\n"
                    "    gl_FragColor = vec4(mix(c.rgb, vec3(g), strength * "
                + QByteArray::number(aIndex % 10) + ".0 / 10.0), c.a) * qt_Opacity;\n}</shaderFragment>\n";
        }
        close("shader");
    }

    Counts mCounts;
    QRandomGenerator mRandom { 20240611 };
    QByteArray mOut;
};

} // namespace Bench
