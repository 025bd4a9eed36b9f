#pragma once

#include "resources/Node.h"

#include <QString>

namespace Hmi::Core {

/**
 * One translated text of a language file, named by its full key ("STR_MENU_BACK"): the visual
 * text, its pronunciation for speech output and three usage flags.
 *
 * The setters taking an is-default flag carry the rule of the XML form: only the text of the
 * default string is kept. The raw setters store what they are given; the binary reader and
 * writers use them.
 */
class HMICORE_EXPORT NodeText final : public Node
{
public:
    explicit NodeText(const QString& aName = QString());
    ~NodeText() override;

    const QString& getText() const { return mText; }
    const QString& getPronunciation() const { return mPronunciation; }
    bool getUseSpeechRecognition() const { return mUseSpeechRecognition; }
    bool getUseTTS() const { return mUseTTS; }
    bool getUseVisual() const { return mUseVisual; }

    /// Keeps aText only when aIsDefault is set; a backslash followed by "n" becomes a line feed.
    void setText(const QString& aText, bool aIsDefault);
    /// Keeps aText, unchanged, only when aIsDefault is set.
    void setPronunciation(const QString& aText, bool aIsDefault);

    void setTextRaw(const QString& aText) { mText = aText; }
    void setPronunciationRaw(const QString& aText) { mPronunciation = aText; }

    void setUseSpeechRecognition(bool aUse) { mUseSpeechRecognition = aUse; }
    void setUseTTS(bool aUse) { mUseTTS = aUse; }
    void setUseVisual(bool aUse) { mUseVisual = aUse; }

protected:
    /**
     * Usage flags (quint8: bit 0 speech recognition, bit 1 TTS, bit 2 visual), a string count
     * (quint8), then per string a tag (quint8: bit 0 present, bits 1-7 kind, 0 pronunciation or
     * 1 visual text) and the QString. Only non-null strings are written.
     */
    void writeFields(QDataStream& aStream) const override;
    void readFields(QDataStream& aStream) override;

private:
    QString mPronunciation;
    QString mText;
    bool mUseSpeechRecognition = false;
    bool mUseTTS = false;
    bool mUseVisual = true;
};

} // namespace Hmi::Core
