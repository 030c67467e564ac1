// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Canvas.h"

#include <algorithm>

namespace zib::demo {
namespace {

struct TagPalette {
    QLatin1String tag;
    Palette colours;
};

const std::array tagPalettes = {
    TagPalette{QLatin1String("ambient"), {0xffdfe9ea, 0xff8fb3bd, 0xff5c8793, 0xff2f5563, 0xfff4d9a8}},
    TagPalette{QLatin1String("piano"), {0xfff3eee6, 0xffd8cbb8, 0xff6b6258, 0xff2e2b2a, 0xffb5654a}},
    TagPalette{QLatin1String("electronic"), {0xff15243b, 0xff1f4e6b, 0xff2fa4a8, 0xff9be0c5, 0xfff2b950}},
    TagPalette{QLatin1String("synthwave"), {0xff1c1038, 0xff6a2170, 0xffe0457b, 0xffff8e5e, 0xffffd56b}},
    TagPalette{QLatin1String("folk"), {0xfff1e6cf, 0xffc8a66b, 0xff6f7f4f, 0xff3c4a33, 0xffb4502f}},
    TagPalette{QLatin1String("acoustic"), {0xfff7ecdc, 0xffe2b887, 0xffa96b43, 0xff5b3a2b, 0xff5f8a83}},
    TagPalette{QLatin1String("jazz"), {0xff14233a, 0xff27476b, 0xffd9a441, 0xffc4572f, 0xfff1e3c6}},
    TagPalette{QLatin1String("lo-fi"), {0xfff2d8c9, 0xffd69c8f, 0xff8a7a98, 0xff4c4a6b, 0xfff5c36b}},
    TagPalette{QLatin1String("chillout"), {0xfffbe3c0, 0xfff2a97e, 0xffcf6f72, 0xff5b5b86, 0xff84c5c0}},
    TagPalette{QLatin1String("classical"), {0xffefe9dd, 0xffbfae90, 0xff7b2f35, 0xff33353f, 0xffc79a3c}},
    TagPalette{QLatin1String("techno"), {0xff101214, 0xff26292d, 0xff6c7378, 0xffd7dadb, 0xffe9503c}},
    TagPalette{QLatin1String("post-rock"), {0xffd3d6d4, 0xff8d989c, 0xff4e5b63, 0xff20292f, 0xffd2783f}},
    TagPalette{QLatin1String("bossa nova"), {0xfff6efd9, 0xff7cc0a8, 0xff20797a, 0xff164450, 0xfff08a4b}},
    TagPalette{QLatin1String("blues"), {0xffcfd9e4, 0xff5f86ad, 0xff2b4f7d, 0xff172a48, 0xffd99a3d}},
    TagPalette{QLatin1String("dream pop"), {0xfff6d9e6, 0xffc5a7dc, 0xff8792d1, 0xff4f5fa5, 0xfffdf0b8}},
    TagPalette{QLatin1String("waltz"), {0xfff4e4da, 0xffd5a59a, 0xff8e4a55, 0xff43273a, 0xffdec27a}},
};

} // namespace

const Palette& paletteOf(const QStringList& tags)
{
    const auto* const found =
        std::find_if(tagPalettes.begin(), tagPalettes.end(),
                     [&](const TagPalette& entry) { return tags.value(0) == entry.tag; });
    return found == tagPalettes.end() ? tagPalettes.front().colours : found->colours;
}

} // namespace zib::demo
