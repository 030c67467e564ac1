// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Styles.h"

namespace zib::demo::progressions {

std::vector<Progression> songs();
std::vector<Progression> minorSongs();
std::vector<Progression> jazz();
std::vector<Progression> bossa();
std::vector<Progression> blues();
std::vector<Progression> ambient();
std::vector<Progression> night();
std::vector<Progression> club();
std::vector<Progression> mellow();
std::vector<Progression> classical();
std::vector<Progression> wide();
std::vector<Progression> dreams();

} // namespace zib::demo::progressions
