#pragma once

namespace Hmi::Core {

/// The kinds of resource node. The numbering is stored in binary resource files: never reorder.
enum class ResourceType : int {
    Color = 0,
    Defaults = 1,
    Font = 2,
    Image = 3,
    Rectangle = 4,
    Shader = 5,
};

constexpr int ResourceTypeCount = 6;

} // namespace Hmi::Core
