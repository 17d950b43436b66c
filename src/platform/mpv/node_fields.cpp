#include "platform/mpv/node_fields.h"

namespace tandrel
{

const mpv_node* nodeField(const mpv_node& map, std::string_view name)
{
    if (map.format != MPV_FORMAT_NODE_MAP)
        return nullptr;
    for (int index = 0; index < map.u.list->num; ++index)
        if (map.u.list->keys[index] == name)
            return &map.u.list->values[index];
    return nullptr;
}

double numberField(const mpv_node& map, std::string_view name, double otherwise)
{
    const mpv_node* node = nodeField(map, name);
    if (node != nullptr && node->format == MPV_FORMAT_INT64)
        return static_cast<double>(node->u.int64);
    if (node != nullptr && node->format == MPV_FORMAT_DOUBLE)
        return node->u.double_;
    return otherwise;
}

bool flagField(const mpv_node& map, std::string_view name)
{
    const mpv_node* node = nodeField(map, name);
    return node != nullptr && node->format == MPV_FORMAT_FLAG && node->u.flag != 0;
}

std::string_view textField(const mpv_node& map, std::string_view name)
{
    const mpv_node* node = nodeField(map, name);
    return node != nullptr && node->format == MPV_FORMAT_STRING ? node->u.string : "";
}

} // namespace tandrel
