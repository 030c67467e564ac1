// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/ArtistTable.h"

namespace zib::demo {

// clang-format off
std::vector<ArtistEntry> artistTable()
{
    using enum Encoding;
    return {
        {"Élan Vérité", {"chillout", "electronic", "dream pop", "ambient"}, 0.86, 0.74, {
            {"Lumière tiède", 2019, {{"Marée basse", 78}, {"Rue des Orangers", 84, Mp3Variable}, {"Un été sans montre", 72}}},
            {"Demi-jour", 2023, {{"Persiennes", 81, Mp3Variable}, {"La dernière terrasse", 90}, {"Bleu pétrole", 76, M4a}}}}},
        {"The Harrow Lamps", {"folk", "acoustic", "waltz", "blues"}, 0.62, 0.58, {
            {"Songs for a Slow Ferry", 2016, {{"Hollin Lane", 68}, {"The Miller's Other Daughter", 75, Mp3Variable}, {"Bread and Rope", 64}}},
            {"Candlemas", 2021, {{"Nine Stiles", 71}, {"Rushlight", 66, M4a}, {"Home by the Weir", 80}}}}},
        {"Tindra & Vole", {"acoustic", "folk", "dream pop"}, 0.71, 0.49, {
            {"Kitchen Weather", 2020, {{"Two Cups", 63}, {"Ladder Against the Plum Tree", 77, Mp3Variable}, {"Rain Check", 70}}}}},
        {"Uo", {"ambient", "piano", "electronic", "chillout"}, 0.55, 0.41, {
            {"o", 2018, {{"Still", 96}, {"Nearly", 88, Mp3Variable}, {"Again", 72, Adts}}}}},
        {"Salt/Orchard", {"post-rock", "ambient", "dream pop"}, 0.58, 0.52, {
            {"Maps of the Tideline", 2015, {{"Groyne", 92}, {"We Were Going to Be Lighthouses", 104, Mp3Variable}, {"Undertow, Slowly", 84}}},
            {"Everything We Carried", 2022, {{"Cairn", 88}, {"Long Exposure", 98, M4a}, {"The Quiet Half of the Year", 90}}}}},
        {"Marisol Quintãs", {"bossa nova", "jazz", "acoustic"}, 0.77, 0.63, {
            {"Varanda", 2017, {{"Chuva de Março", 69}, {"Pé na areia", 62, Mp3Variable}, {"Quase domingo", 74}}}}},
        {"Odalys Ferreiro Trio", {"jazz", "piano", "bossa nova", "blues"}, 0.66, 0.7, {
            {"Late Table", 2014, {{"Number Nine Tram", 76}, {"Corner Booth", 71, Mp3Variable}, {"For Inés", 82}}},
            {"Second Set", 2019, {{"Blue Umbrella", 73}, {"Sidestep", 67, Wav}, {"Last Coat on the Rack", 79}}}}},
        {"Kestrel Motorway", {"synthwave", "electronic", "techno"}, 0.83, 0.61, {
            {"Junction Zero", 2020, {{"Headlights", 85}, {"Service Station Angels", 93, Mp3Variable}, {"Chrome Verge", 78}}}}},
        {"Neon Pelargonium", {"synthwave", "chillout", "electronic", "dream pop"}, 0.74, 0.46, {
            {"Balcony Season", 2021, {{"Polaroid Sunset", 82}, {"Arcade After Rain", 76, Adts}, {"Slow Elevator", 88}}}}},
        {"Basement Herbarium", {"lo-fi", "chillout", "jazz"}, 0.91, 0.68, {
            {"Pressed Leaves", 2021, {{"Fern", 58}, {"Windowsill Thyme", 64, Mp3Variable}, {"Moss on the Tape Deck", 61}}},
            {"Greenhouse Hours", 2024, {{"Watering Can", 60}, {"Sunday Compost", 66}, {"Nightshade, Decaf", 59, M4a}}}}},
        {"Oskar Halfmoon", {"lo-fi", "piano", "chillout", "jazz"}, 0.69, 0.44, {
            {"Homework for Owls", 2022, {{"Pencil Shavings", 57}, {"Third Floor, Light On", 63, Mp3Variable}, {"Snow Day Radio", 68}}}}},
        {"Ilse Brandvold", {"piano", "classical", "ambient"}, 0.8, 0.72, {
            {"Rooms with Snow", 2018, {{"The Blue Hour", 78}, {"Letter Not Sent", 72, Mp3Variable}, {"Kettle, Window, Fjord", 84}}},
            {"Small Hours", 2022, {{"Lullaby for a Clock", 70}, {"Footsteps on the Stair", 76, M4a}, {"Thaw", 82}}}}},
        {"Tadeusz Wrzosowy", {"classical", "piano", "waltz"}, 0.42, 0.56, {
            {"Album Leaves", 2012, {{"Intermezzo in the Garden", 74}, {"Arietta", 66, Wav}, {"Evening at the Spa", 70}}}}},
        {"Quatuor des Glycines", {"classical", "waltz", "acoustic"}, 0.39, 0.47, {
            {"Pavillon d'été", 2016, {{"Promenade", 72}, {"Les volets verts", 68, Mp3Variable}, {"Danse pour un jardinier", 64}}}}},
        {"Café Zeppelinstraße", {"waltz", "jazz", "acoustic", "piano"}, 0.48, 0.43, {
            {"Sperrstunde", 2013, {{"Karussell im Regen", 66}, {"Frau Ohlers Katze", 61, Mp3Variable}, {"Der letzte Groschen", 72}}}}},
        {"Deacon Willowbrook", {"blues", "acoustic", "folk"}, 0.57, 0.65, {
            {"Gravel and Honey", 2011, {{"Mailbox Blues", 73}, {"Porch Light Burning", 78, Mp3Variable}, {"Tin Roof Prayer", 69}}}}},
        {"Big Muriel's Kitchen Band", {"blues", "jazz", "lo-fi"}, 0.51, 0.38, {
            {"Second Helping", 2018, {{"Cast Iron Shuffle", 70}, {"Who Ate the Peaches", 64, Mp3Variable}, {"Dishwater Moon", 76, Adts}}}}},
        {"Umspannwerk Süd", {"techno", "electronic", "ambient"}, 0.73, 0.5, {
            {"Drehstrom", 2020, {{"Schaltfeld", 98}, {"Blindleistung", 106, Mp3Variable}, {"Nachtspeicher", 90}}}}},
        {"Polychrome Ferry", {"techno", "chillout", "electronic", "synthwave"}, 0.68, 0.4, {
            {"Upper Deck", 2023, {{"Gangway", 92}, {"Sodium Lights", 100, Mp3Variable}, {"Harbour Pilot", 84}}}}},
        {"Sleep Cartographer", {"ambient", "dream pop", "post-rock"}, 0.6, 0.45, {
            {"Contour Lines", 2019, {{"Legend", 94}, {"Uncharted, Unhurried", 102, Mp3Variable}, {"Here Be Pillows", 86}}}}},
        {"Pale Meridian Club", {"dream pop", "chillout", "synthwave"}, 0.79, 0.57, {
            {"Swimming Lessons", 2022, {{"Deep End", 78}, {"Chlorine Heart", 84, Mp3Variable}, {"Lost Property", 74}}}}},
        {"Wren Ashdowne", {"acoustic", "folk", "piano"}, 0.65, 0.53, {
            {"Unposted", 2017, {{"Sparrow in the Station", 67}, {"Half a Map", 73, M4a}, {"Ordinary Blessings", 70}}}}},
        {"Moth Observatory", {"dream pop", "post-rock", "lo-fi"}, 0.63, 0.36, {
            {"Wingspan", 2021, {{"Porchlight Theory", 80}, {"Soft Collisions", 76, Mp3Variable}, {"Dust on the Lens", 88}}}}},
        {"Forty Small Rivers", {"post-rock", "folk", "dream pop", "ambient"}, 0.54, 0.42, {
            {"Confluence", 2018, {{"Source", 86}, {"Oxbow", 94, Mp3Variable}, {"Every Bridge Has a Name", 78}}}}},
        {"Anouk Delacroisière", {"bossa nova", "acoustic", "waltz", "jazz"}, 0.59, 0.48, {
            {"Sel et citron", 2020, {{"Le bateau de midi", 66}, {"Persil plat", 60, Mp3Variable}, {"Une valise légère", 71}}}}},
        {"Circuit Bakery", {"electronic", "chillout", "lo-fi", "techno"}, 0.7, 0.39, {
            {"Warm Solder", 2024, {{"Proofing", 75}, {"Modular Croissant", 82, Mp3Variable}, {"Crumb Trail", 68, Wav}}}}},
        {"Sæunn Fjóla", {"ambient", "classical", "piano"}, 0.64, 0.54, {
            {"Heiðin", 2017, {{"Lyng", 90}, {"Undir þaki", 84, Mp3Variable}, {"Morgunn", 76}}}}},
        {"Juniper Static", {"lo-fi", "dream pop", "electronic"}, 0.67, 0.35, {
            {"Rental Tapes", 2023, {{"Be Kind", 56}, {"Tracking", 62, Mp3Variable}, {"Late Fee", 70, Adts}}}}},
    };
}
// clang-format on

} // namespace zib::demo
