#include "language/NodeText.h"

#include <QDataStream>

namespace Hmi::Core {

namespace {

constexpr quint8 sFlagSpeechRecognition = 0x01;
constexpr quint8 sFlagTTS = 0x02;
constexpr quint8 sFlagVisual = 0x04;

constexpr quint8 sTagPresent = 0x01;
constexpr quint8 sKindPronunciation = 0;
constexpr quint8 sKindText = 1;

} // namespace

NodeText::NodeText(const QString& aName)
    : Node(aName)
{ }

NodeText::~NodeText() = default;

void NodeText::setText(const QString& aText, bool aIsDefault)
{
    if (!aIsDefault) {
        return;
    }
    // Translators write line breaks as "\n": the XML form has no other way that survives their
    // tools.
    mText = aText;
    mText.replace(QLatin1String("\\n"), QLatin1String("\n"));
}

void NodeText::setPronunciation(const QString& aText, bool aIsDefault)
{
    if (aIsDefault) {
        mPronunciation = aText;
    }
}

void NodeText::writeFields(QDataStream& aStream) const
{
    quint8 flags = 0;
    if (mUseSpeechRecognition) {
        flags |= sFlagSpeechRecognition;
    }
    if (mUseTTS) {
        flags |= sFlagTTS;
    }
    if (mUseVisual) {
        flags |= sFlagVisual;
    }
    const quint8 count = quint8((mText.isNull() ? 0 : 1) + (mPronunciation.isNull() ? 0 : 1));
    aStream << flags << count;
    if (!mText.isNull()) {
        aStream << quint8(sKindText << 1 | sTagPresent) << mText;
    }
    if (!mPronunciation.isNull()) {
        aStream << quint8(sKindPronunciation << 1 | sTagPresent) << mPronunciation;
    }
}

// BinaryLanguageFile::load() reads this record from memory with a reader of its own, for speed;
// a change to the record here must be made there too.
void NodeText::readFields(QDataStream& aStream)
{
    quint8 flags = 0;
    quint8 count = 0;
    aStream >> flags >> count;
    if (aStream.status() != QDataStream::Ok) {
        return;
    }
    mUseSpeechRecognition = flags & sFlagSpeechRecognition;
    mUseTTS = flags & sFlagTTS;
    mUseVisual = flags & sFlagVisual;
    // The count is a byte and nothing is allocated from it; a short stream ends the loop.
    for (int i = 0; i < count; ++i) {
        quint8 tag = 0;
        aStream >> tag;
        if (aStream.status() != QDataStream::Ok) {
            return;
        }
        const quint8 kind = tag >> 1;
        if (kind != sKindPronunciation && kind != sKindText) {
            aStream.setStatus(QDataStream::ReadCorruptData);
            return;
        }
        QString value;
        aStream >> value;
        if (aStream.status() != QDataStream::Ok) {
            return;
        }
        if (!(tag & sTagPresent)) {
            continue;
        }
        if (kind == sKindText) {
            mText = std::move(value);
        } else {
            mPronunciation = std::move(value);
        }
    }
}

} // namespace Hmi::Core
