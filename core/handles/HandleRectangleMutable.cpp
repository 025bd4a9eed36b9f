#include "handles/HandleRectangleMutable.h"

namespace Hmi::Core {

namespace {

    HandleRectangleMutable* owner(QQmlListProperty<HmiGradientStop>* aList)
    {
        return static_cast<HandleRectangleMutable*>(aList->object);
    }

} // namespace

HandleRectangleMutable::HandleRectangleMutable(QObject* aParent)
    : HandleRectangle(aParent)
{
}

HandleRectangleMutable::~HandleRectangleMutable() = default;

QQmlListProperty<HmiGradientStop> HandleRectangleMutable::getWritableGradientStops()
{
    return QQmlListProperty<HmiGradientStop>(
        this, nullptr,
        [](QQmlListProperty<HmiGradientStop>* aList, HmiGradientStop* aStop) { owner(aList)->appendGradientStop(aStop); },
        [](QQmlListProperty<HmiGradientStop>* aList) { return owner(aList)->getGradientStopsCount(); },
        [](QQmlListProperty<HmiGradientStop>* aList, int aIndex) { return owner(aList)->getGradientStopAt(aIndex); },
        [](QQmlListProperty<HmiGradientStop>* aList) { owner(aList)->clearGradientStops(); });
}

} // namespace Hmi::Core
