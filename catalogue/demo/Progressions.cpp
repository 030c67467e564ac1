// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Progressions.h"

namespace zib::demo::progressions {

std::vector<Progression> songs()
{
    return {
        {Mode::Major, "I | V | vi | IV | I | V | IV V | I", "vi | iii | IV | I | ii | vi | IV | V7sus4 V7",
         "IV | V7 | I | I"},
        {Mode::Major, "I | iii | IV | V | vi | IV | ii V7 | I", "IV | V | iii | vi | IV | I | ii | V7",
         "ii | V7 | I | I"},
        {Mode::Major, "I | IVadd9 | I | V | vi | IV | V7sus4 V7 | I", "IV | I | V | vi | IV | I | II7 | V7",
         "IV | iv | I | I"},
        {Mode::Mixolydian, "I | bVII | IV | I | I | bVII | IV bVII | I",
         "v | IV | I | I | v | bVII | IV | V7", "IV | bVII | Iadd9 | I"},
    };
}

std::vector<Progression> minorSongs()
{
    return {
        {Mode::Minor, "i | VI | III | VII | i | VI | iv V7 | i", "III | VII | iv | i | VI | III | iih7 | V7",
         "iv | V7 | i | i"},
        {Mode::Dorian, "i | IV | i | VII | III | VII | i VII | i", "III | IV | i | i | III | VII | IV | V7",
         "IV | VII | i | i"},
        {Mode::Minor, "i | v | VI | III | iv | i | VI V7 | i", "VI | VII | III | i | VI | VII | V7sus4 | V7",
         "VI | V7 | i | i"},
    };
}

std::vector<Progression> jazz()
{
    return {
        {Mode::Major, "Imaj7 | vi7 | ii7 | V7 | iii7 | vi7 | ii7 V7 | I6",
         "IVmaj7 | bVII9 | iii7 | VI7 | ii7 | II9 | ii7 | V7b9", "ii7 | V13 | I6 | Imaj9"},
        {Mode::Minor, "i7 | iv7 | iih7 | V7b9 | i7 | VImaj7 | iih7 V7b9 | i6",
         "iv7 | VII9 | IIImaj7 | VImaj7 | iih7 | V7b9 | i7 | V7b9", "iih7 | V7b9 | i6 | i6"},
        {Mode::Major, "Imaj7 | IVmaj7 | iii7 | VI7 | ii9 | V13 | Imaj7 VI7 | ii7 V7",
         "iii7 | VI7 | ii7 | ii7 | II9 | II9 | ii7 | V13", "iii7 VI7 | ii7 V13 | Imaj9 | Imaj9"},
    };
}

std::vector<Progression> bossa()
{
    return {
        {Mode::Major, "Imaj9 | Imaj9 | II9 | II9 | ii9 | V13 | Imaj9 | Imaj9",
         "IVmaj7 | iv6 | iii7 | VI7b9 | ii9 | ii9 | V7sus4 | V13", "ii9 | V7b9 | Imaj9 | Imaj9"},
        {Mode::Minor, "i9 | iv9 | VII13 | IIImaj7 | VImaj7 | iih7 | V7b9 | i9",
         "iv9 | VII9 | IIImaj7 | VImaj7 | iih7 | V7b9 | i9 | V7b9", "iih7 | V7b9 | i9 | i9"},
        {Mode::Major, "Imaj7 | iii7 | ii9 | V13 | Imaj7 | VI7b9 | ii9 V13 | I6",
         "vi9 | II9 | ii9 | V13 | iii7 | VI7b9 | ii9 | V7b9", "iv6 | V13 | Imaj9 | I6"},
    };
}

std::vector<Progression> blues()
{
    return {
        {Mode::Dorian, "I7 | V7 | IV7 | IV7 | I7 | V7 | I7 IV7 | I7",
         "IV7 | IV7 | I7 | I7 | ii7 | V7 | I7 | V7", "V7 | IV7 | I7 | I7"},
        {Mode::Dorian, "I7 | IV7 | I7 | I7 | IV7 | V7 | I7 IV7 | I7",
         "IV7 | iv7 | I7 | VI7 | II9 | IV9 | I7 | V9", "V7 | IV7 | I9 | I9"},
        {Mode::Minor, "i7 | i7 | iv7 | i7 | VI7 | V7 | i7 iv7 | i7",
         "iv7 | iv7 | i7 | i7 | VImaj7 | iih7 | V7 | V7", "VI7 | V7 | i7 | i7"},
    };
}

std::vector<Progression> ambient()
{
    return {
        {Mode::Lydian, "Imaj9 | Imaj9 | II | II | vi7 | vi7 | Imaj9 | Imaj9",
         "vi9 | vi9 | iii7 | iii7 | II | II | V | V", "vi7 | II | Imaj9 | Imaj9"},
        {Mode::Dorian, "i9 | i9 | IVadd9 | IVadd9 | VIImaj7 | VIImaj7 | i9 | i9",
         "IIImaj7 | IIImaj7 | VIImaj7 | VIImaj7 | IVadd9 | IVadd9 | v7 | v7", "IVadd9 | v7 | i9 | i9"},
        {Mode::Major, "Iadd9 | Iadd9 | IVmaj9 | IVmaj9 | vi9 | V7sus4 | Iadd9 | Iadd9",
         "IVmaj9 | IVmaj9 | iii7 | vi9 | ii9 | ii9 | V7sus4 | V7sus4", "IVmaj9 | iv6 | Iadd9 | Iadd9"},
    };
}

std::vector<Progression> night()
{
    return {
        {Mode::Minor, "i | i | VI | VI | III | III | VII | i", "iv | iv | i | i | VI | VII | V7sus4 | V7",
         "VI | VII | i | i"},
        {Mode::Minor, "i | VII | VI | VI | iv | VI | VII | i", "VI | VII | i | III | VI | VII | V7sus4 | V7",
         "iv | VII | iadd9 | i"},
        {Mode::Dorian, "i7 | IV | VII | i7 | i7 | IV | VII | i7",
         "III | VII | IV | i7 | III | VII | IV | V7sus4", "III | IV | iadd9 | i"},
    };
}

std::vector<Progression> club()
{
    return {
        {Mode::Minor, "i7 | i7 | i7 | i7 | VImaj7 | VImaj7 | v7 | i7",
         "iv7 | iv7 | i7 | i7 | VImaj7 | VII | v7 | v7", "VImaj7 | v7 | i9 | i9"},
        {Mode::Dorian, "i9 | i9 | IV9 | IV9 | i9 | i9 | v7 | i9",
         "VIImaj7 | VIImaj7 | IV | IV | i9 | i9 | v7 | v7", "VIImaj7 | IV9 | i9 | i9"},
        {Mode::Minor, "i9 | VImaj7 | i9 | VImaj7 | iv9 | iv9 | v7 | i9",
         "VImaj7 | VII6 | i9 | IIImaj7 | VImaj7 | VII6 | v7 | v7", "iv9 | VII6 | i9 | i9"},
    };
}

std::vector<Progression> mellow()
{
    return {
        {Mode::Major, "ii9 | V13 | Imaj9 | vi9 | ii9 | V13 | Imaj9 | Imaj9",
         "IVmaj7 | iv6 | iii7 | VI7b9 | ii9 | iii7 | IVmaj7 | V13", "ii9 | V13 | Imaj9 | Imaj9"},
        {Mode::Major, "IVmaj7 | iii7 | ii9 | Imaj9 | IVmaj7 | iii7 VI7 | ii9 V13 | Imaj9",
         "vi9 | iii7 | IVmaj9 | Imaj9 | ii9 | vi9 | II9 | V7sus4", "IVmaj7 | iv6 | Imaj9 | Imaj9"},
        {Mode::Minor, "i9 | iv9 | VImaj7 | V7b9 | i9 | iv9 | iih7 V7b9 | i9",
         "VImaj7 | IIImaj7 | iv9 | i9 | VImaj7 | IIImaj7 | iih7 | V7b9", "iv9 | V7b9 | i9 | i9"},
        {Mode::Major, "Imaj9 | iii7 | vi9 | IVmaj9 | Imaj9 | iii7 | ii9 V7sus4 | Imaj9",
         "vi9 | IVmaj9 | ii9 | V13 | iii7 | vi9 | IVmaj9 | V7sus4", "IVmaj9 | V13 | Imaj9 | Imaj9"},
    };
}

std::vector<Progression> classical()
{
    return {
        {Mode::Major, "I | V7 | vi | iii | IV | I | ii V7 | I", "V | I | V7 | I | VI7 | ii | II7 | V7",
         "ii | V7 | I | I"},
        {Mode::Minor, "i | iv | VII | III | VI | iih7 | V7 | i", "III | VI | iih7 | V7 | i | iv | i | V7",
         "iih7 | V7 | i | i"},
        {Mode::Major, "I | ii | V7 | I | vi | ii | V7sus4 V7 | I", "vi | III7 | vi | II7 | V | VI7 | ii | V7",
         "IV | V7 | I | I"},
        {Mode::Minor, "i | V7 | i | iv | VI | iv | i V7 | i", "III | VII | III | V7 | iv | i | iih7 | V7",
         "iv | V7 | i | i"},
    };
}

std::vector<Progression> wide()
{
    return {
        {Mode::Major, "Iadd9 | Iadd9 | vi7 | vi7 | IVadd9 | IVadd9 | Vsus4 V | Iadd9",
         "vi7 | vi7 | IVadd9 | IVadd9 | Iadd9 | iii7 | IVadd9 | V", "IVadd9 | IVadd9 | Iadd9 | Iadd9"},
        {Mode::Minor, "i | i | VI | VI | III | III | VII | i", "VI | VI | iv | iv | III | VII | VI | VII",
         "VI | iv | iadd9 | i"},
    };
}

std::vector<Progression> dreams()
{
    return {
        {Mode::Major, "Imaj7 | iii7 | IVmaj7 | iv6 | Imaj7 | iii7 | IVmaj7 iv6 | Iadd9",
         "vi7 | iii7 | IVmaj7 | Iadd9 | vi7 | II7 | IVmaj7 | V7sus4", "IVmaj7 | iv6 | Iadd9 | Iadd9"},
        {Mode::Major, "Iadd9 | IVmaj7 | vi7 | V | Iadd9 | IVmaj7 | V7sus4 V | Iadd9",
         "IVmaj7 | iii7 | vi7 | V | IVmaj7 | iii7 | ii7 | V7sus4", "IVmaj7 | V | Iadd9 | Iadd9"},
        {Mode::Lydian, "Imaj7 | II | Imaj7 | vi7 | iii7 | vi7 | II V | Imaj7",
         "vi7 | V | II | II | vi7 | iii7 | II | V", "II | V | Imaj9 | Imaj9"},
    };
}

} // namespace zib::demo::progressions
