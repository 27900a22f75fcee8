#pragma once

#include <QString>

namespace tk {

// One item of an icon picker's list: the key of its picture in the image list and its text.
struct IconListItem {
    QString key;
    QString tekst;
    friend bool operator==(const IconListItem&, const IconListItem&) = default;
};

} // namespace tk
