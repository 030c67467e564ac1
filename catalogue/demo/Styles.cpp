// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Styles.h"

#include "catalogue/demo/Patterns.h"
#include "catalogue/demo/Progressions.h"

#include <algorithm>

namespace zib::demo {
namespace {

using I = Instrument;
namespace p = progressions;
namespace r = patterns;

std::vector<Progression> both(std::vector<Progression> first, const std::vector<Progression>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// clang-format off
std::vector<Style> quietStyles()
{
    return {
        {.tag = "ambient", .slowest = 58, .fastest = 72, .roominess = 0.75F, .progressions = p::ambient(), .motifs = r::sparse(),
         .cadences = {"x---x---|x-------", "....x---|x-------"}, .chordPatterns = {"0---2---", "0-1-2-3-|2-3-1-2-"},
         .bassPatterns = {"r-------", "r-----f-"}, .leads = {I::GlassBell, I::FeltPiano, I::Whistle, I::Celesta},
         .chordInstruments = {I::Harp, I::FeltPiano, I::Kalimba, I::ElectricPiano}, .pads = {I::WarmPad, I::Choir, I::StringSection},
         .basses = {I::SubBass}, .counters = {I::Cello, I::Choir}},
        {.tag = "piano", .slowest = 66, .fastest = 88, .roominess = 0.45F, .progressions = both(p::songs(), p::minorSongs()),
         .motifs = r::lyrical(), .cadences = r::resting(), .chordPatterns = {"0-1-2-1-", "01213121", "02132312"},
         .bassPatterns = {"r-------", "r---f---"}, .chordVoices = 4, .leads = {I::FeltPiano}, .chordInstruments = {I::FeltPiano},
         .pads = {I::StringSection}, .basses = {I::FeltPiano}, .counters = {I::Cello, I::Violin}},
        {.tag = "classical", .slowest = 76, .fastest = 104, .roominess = 0.5F, .progressions = p::classical(), .motifs = r::flowing(),
         .cadences = r::resting(), .chordPatterns = {"c---c---", "02120212"}, .bassPatterns = {"r-------", "r---f---"},
         .chordVoices = 3, .leads = {I::Violin, I::Flute, I::Clarinet}, .chordInstruments = {I::GrandPiano, I::Harp},
         .pads = {I::StringSection}, .basses = {I::Cello}, .counters = {I::Clarinet, I::Cello, I::Flute}},
        {.tag = "waltz", .beatsPerBar = 3, .slowest = 112, .fastest = 144, .roominess = 0.4F,
         .progressions = both(p::classical(), p::minorSongs()), .motifs = r::turning(), .cadences = r::turningRest(),
         .chordPatterns = {"..c---", "..c-c-"}, .bassPatterns = {"r-----", "r-----|f-----"}, .chordVoices = 3,
         .leads = {I::Clarinet, I::Violin, I::Celesta}, .chordInstruments = {I::GrandPiano, I::NylonGuitar}, .pads = {I::StringSection},
         .basses = {I::UprightBass, I::Cello}, .counters = {I::Flute, I::Cello}, .kit = DrumKit::Brushes, .drums = r::waltzBeat()},
        {.tag = "folk", .slowest = 92, .fastest = 116, .roominess = 0.28F, .progressions = both(p::songs(), p::minorSongs()),
         .motifs = r::flowing(), .cadences = r::resting(), .chordPatterns = {"0-2-1-2-", "0-231-23"},
         .bassPatterns = {"r---f---", "r---f-r-"}, .leads = {I::Whistle, I::Violin, I::Flute}, .chordInstruments = {I::SteelGuitar},
         .pads = {}, .basses = {I::UprightBass}, .counters = {I::Clarinet, I::Cello}, .kit = DrumKit::Brushes, .drums = r::ballad()},
        {.tag = "acoustic", .slowest = 80, .fastest = 104, .roominess = 0.3F, .progressions = p::songs(), .motifs = r::lyrical(),
         .cadences = r::resting(), .chordPatterns = {"02132132", "c-tt-tct"}, .bassPatterns = {"r-------", "r--rf---"}, .strum = 0.014,
         .leads = {I::NylonGuitar, I::Flute, I::Whistle}, .chordInstruments = {I::SteelGuitar, I::NylonGuitar}, .pads = {I::StringSection},
         .basses = {I::UprightBass, I::FingerBass}, .counters = {I::Cello, I::Violin}, .kit = DrumKit::Brushes, .drums = r::ballad()},
        {.tag = "dream pop", .slowest = 80, .fastest = 104, .roominess = 0.6F, .progressions = p::dreams(), .motifs = r::lyrical(),
         .cadences = r::resting(), .chordPatterns = {"c-------", "0-12-321"}, .bassPatterns = {"r-------", "rrrrrrrr"}, .strum = 0.02,
         .leads = {I::SquareLead, I::Choir, I::Whistle}, .chordInstruments = {I::CleanGuitar}, .pads = {I::WarmPad, I::Choir},
         .basses = {I::FingerBass}, .counters = {I::GlassBell, I::CleanGuitar}, .kit = DrumKit::Acoustic, .drums = r::ballad()},
    };
}

std::vector<Style> livelyStyles()
{
    return {
        {.tag = "jazz", .slowest = 108, .fastest = 148, .swing = 0.64F, .roominess = 0.25F, .progressions = p::jazz(), .motifs = r::swung(),
         .cadences = {"x-xxx-x-|x-----..", ".xx-x-x-|x----..."}, .chordPatterns = {"c--c----", "c--c----|.c----c-"},
         .bassPatterns = {"r---f---", "r-w-w-a-"}, .leads = {I::MutedTrumpet, I::Vibraphone, I::Clarinet, I::NylonGuitar},
         .chordInstruments = {I::GrandPiano, I::ElectricPiano}, .pads = {}, .basses = {I::UprightBass},
         .counters = {I::Clarinet, I::Vibraphone}, .kit = DrumKit::Brushes, .drums = r::brushes()},
        {.tag = "bossa nova", .slowest = 116, .fastest = 140, .roominess = 0.25F, .progressions = p::bossa(), .motifs = r::syncopated(),
         .cadences = {"x--x--x-|-x----..", "x-x-x--x|-----..."}, .chordPatterns = {"c---c---", "c--c--c-|.-c--c--"},
         .bassPatterns = {"r---f---", "r--ff--r"}, .leads = {I::Flute, I::Vibraphone, I::Clarinet},
         .chordInstruments = {I::NylonGuitar}, .pads = {I::StringSection}, .basses = {I::UprightBass},
         .counters = {I::Vibraphone, I::Flute}, .kit = DrumKit::Brushes, .drums = r::bossaBeat()},
        {.tag = "blues", .slowest = 84, .fastest = 112, .swing = 0.66F, .roominess = 0.25F, .progressions = p::blues(), .motifs = r::swung(),
         .cadences = {"x-xxx-x-|x-----..", "xxx-x-x-|x----..."}, .chordPatterns = {"c---c---", "c-tct-tc"},
         .bassPatterns = {"r---f---", "r-w-w-a-"}, .strum = 0.01, .leads = {I::CleanGuitar, I::Organ, I::MutedTrumpet},
         .chordInstruments = {I::GrandPiano, I::SteelGuitar}, .pads = {I::Organ}, .basses = {I::FingerBass, I::UprightBass},
         .counters = {I::MutedTrumpet, I::Clarinet}, .kit = DrumKit::Acoustic, .drums = r::shuffle()},
        {.tag = "lo-fi", .slowest = 72, .fastest = 88, .swing = 0.58F, .roominess = 0.25F, .warmth = 0.8F, .progressions = p::mellow(),
         .motifs = r::syncopated(), .cadences = r::resting(), .chordPatterns = {"c-------", "c-----tt|c--t--t-"},
         .bassPatterns = {"r-----..", "r--r--f-|r---..a-"}, .strum = 0.02, .leads = {I::Vibraphone, I::FeltPiano, I::Kalimba, I::NylonGuitar},
         .chordInstruments = {I::ElectricPiano, I::FeltPiano}, .pads = {I::WarmPad}, .basses = {I::SubBass, I::FingerBass},
         .counters = {I::MutedTrumpet, I::Flute}, .kit = DrumKit::Dusty, .drums = r::boomBap()},
        {.tag = "chillout", .slowest = 84, .fastest = 100, .swing = 0.53F, .roominess = 0.45F, .warmth = 0.2F, .progressions = p::mellow(),
         .motifs = r::lyrical(), .cadences = r::resting(), .chordPatterns = {"c-------", "0-2-1-3-"},
         .bassPatterns = {"r-------", "r--r--f-"}, .leads = {I::Flute, I::SquareLead, I::Kalimba, I::Whistle},
         .chordInstruments = {I::ElectricPiano, I::AnalogPluck}, .pads = {I::WarmPad, I::Choir}, .basses = {I::SubBass},
         .counters = {I::GlassBell, I::Vibraphone}, .kit = DrumKit::Electronic, .drums = r::boomBap()},
        {.tag = "electronic", .slowest = 104, .fastest = 120, .human = false, .roominess = 0.4F, .progressions = both(p::night(), p::dreams()),
         .motifs = r::syncopated(), .cadences = r::resting(), .chordPatterns = {"0-1-2-3-2-1-2-3-", "0123213201232132"},
         .bassPatterns = {"r-------", "r--r--r-"}, .leads = {I::SquareLead, I::SawLead, I::GlassBell}, .chordInstruments = {I::AnalogPluck, I::Celesta},
         .pads = {I::WarmPad}, .basses = {I::SubBass, I::SawBass}, .counters = {I::GlassBell, I::Choir}, .kit = DrumKit::Electronic,
         .drums = r::neon()},
        {.tag = "synthwave", .slowest = 92, .fastest = 116, .human = false, .roominess = 0.4F, .warmth = 0.15F, .progressions = p::night(),
         .motifs = r::lyrical(), .cadences = r::resting(), .chordPatterns = {"0---2---", "0213021302130213"},
         .bassPatterns = {"r-r-r-r-", "rrrrrrrrrrrrrror"}, .leads = {I::SawLead, I::SquareLead}, .chordInstruments = {I::AnalogPluck},
         .pads = {I::WarmPad, I::StringSection}, .basses = {I::SawBass}, .counters = {I::GlassBell, I::SquareLead},
         .kit = DrumKit::Electronic, .drums = r::neon()},
        {.tag = "techno", .slowest = 120, .fastest = 132, .human = false, .roominess = 0.35F, .progressions = p::club(), .motifs = r::pulsing(),
         .cadences = {"x--x--x-|x-------", "x-x--x--|x------."}, .chordPatterns = {"..c.....", "...c..c...c...c.|...c..c...c..c.."},
         .bassPatterns = {"..r...r...r...r.", "..r...r...r..rro"}, .leads = {I::AnalogPluck, I::GlassBell, I::SquareLead},
         .chordInstruments = {I::AnalogPluck, I::ElectricPiano}, .pads = {I::WarmPad}, .basses = {I::SawBass, I::SubBass},
         .counters = {I::GlassBell, I::Choir}, .kit = DrumKit::Electronic, .drums = r::fourOnTheFloor()},
        {.tag = "post-rock", .slowest = 84, .fastest = 108, .roominess = 0.55F, .progressions = p::wide(), .motifs = r::lyrical(),
         .cadences = r::resting(), .chordPatterns = {"0-1-2-1-", "0012221101233221"}, .bassPatterns = {"r-------", "rrrrrrrr"},
         .leads = {I::CleanGuitar, I::DriveGuitar}, .chordInstruments = {I::CleanGuitar}, .pads = {I::StringSection, I::WarmPad},
         .basses = {I::FingerBass}, .counters = {I::DriveGuitar, I::Violin}, .kit = DrumKit::Acoustic, .drums = r::marching()},
    };
}
// clang-format on

} // namespace

const std::vector<Style>& allStyles()
{
    static const std::vector<Style> styles = [] {
        std::vector<Style> list = quietStyles();
        const std::vector<Style> lively = livelyStyles();
        list.insert(list.end(), lively.begin(), lively.end());
        return list;
    }();
    return styles;
}

const Style& styleOf(std::string_view tag)
{
    const auto& styles = allStyles();
    const auto found =
        std::find_if(styles.begin(), styles.end(), [&](const Style& style) { return style.tag == tag; });
    return found == styles.end() ? styles.front() : *found;
}

} // namespace zib::demo
