// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Prose.h"

#include <QHash>

namespace zib::demo {

namespace {

const QHash<QString, QString>& texts()
{
    // clang-format off
    static const QHash<QString, QString> all{
        {QStringLiteral("Élan Vérité"), QStringLiteral("Two former sound engineers from Marseille who write at the hour when the shutters go down. Their records are made of one synthesizer, one echo and a great deal of patience.")},
        {QStringLiteral("The Harrow Lamps"), QStringLiteral("A family of five from the fells, who learned half of their songs from a grandmother and the other half from each other. They still tour by van and refuse to play louder than the kettle.")},
        {QStringLiteral("Tindra & Vole"), QStringLiteral("A duo that began as neighbours with a thin wall between them. Everything is recorded at the kitchen table, rain included.")},
        {QStringLiteral("Uo"), QStringLiteral("Nobody has seen Uo play. The music comes as slow circles of piano and tape, each a little different from the one before, and is best met with the lights low.")},
        {QStringLiteral("Salt/Orchard"), QStringLiteral("Four friends, two guitars too many and a coastline to fill. Their pieces start as a whisper and take their time to become weather.")},
        {QStringLiteral("Marisol Quintãs"), QStringLiteral("Singer and guitarist, raised between Aveiro and Recife. She writes the way people talk on balconies: unhurried, amused, and seldom about what it seems to be about.")},
        {QStringLiteral("Odalys Ferreiro Trio"), QStringLiteral("Piano, bass and brushes from the late table of a bar that has since become a bakery. The trio has kept the hours, if not the address.")},
        {QStringLiteral("Kestrel Motorway"), QStringLiteral("One driver, one drum machine, and the long road north after midnight. The melodies are all horizon, the bass is all engine.")},
        {QStringLiteral("Neon Pelargonium"), QStringLiteral("Pop for balconies with a view of other balconies. She builds her songs from the arpeggios of old arcade boards and waters them daily.")},
        {QStringLiteral("Basement Herbarium"), QStringLiteral("Beats pressed between the pages of old jazz books. What began as music to do homework to has become the reason why the homework is late.")},
        {QStringLiteral("Oskar Halfmoon"), QStringLiteral("A night-school teacher with an upright piano and a cassette recorder that wobbles. He says the wobble is the better musician.")},
        {QStringLiteral("Ilse Brandvold"), QStringLiteral("A pianist from the Norwegian coast who leaves the window open while she records. Critics have praised her silences, which annoys her, as she works hard on the notes.")},
        {QStringLiteral("Tadeusz Wrzosowy"), QStringLiteral("Composer of small forms in a time of large ones. His album leaves were written for the guests of a spa and outlived most of its walls.")},
        {QStringLiteral("Quatuor des Glycines"), QStringLiteral("A quartet that plays outdoors from May to September and takes its tempo from the garden. The gardener gets a dedication on every record.")},
        {QStringLiteral("Café Zeppelinstraße"), QStringLiteral("House band of a café that closes when the last waltz does. Accordion, clarinet, a borrowed cello, and a cat that answers to Frau Ohler.")},
        {QStringLiteral("Deacon Willowbrook"), QStringLiteral("Sings about weather, debts and forgiveness, in that order. He has owned the same guitar for forty years and says that it still owes him a song.")},
        {QStringLiteral("Big Muriel's Kitchen Band"), QStringLiteral("Muriel cooks, the band plays, and nobody goes home before both are done. The recordings were made between the first and the second helping.")},
        {QStringLiteral("Umspannwerk Süd"), QStringLiteral("Three electricians and their love of mains hum. Their sets last from the evening load to the morning peak and never raise their voice.")},
        {QStringLiteral("Polychrome Ferry"), QStringLiteral("Dance music with sea air in it. Written on the night boat, where the beat has to agree with the diesel below.")},
        {QStringLiteral("Sleep Cartographer"), QStringLiteral("Maps of places that can only be reached lying down. Long tones, soft edges, and a scale of one to one.")},
        {QStringLiteral("Pale Meridian Club"), QStringLiteral("They met at an empty swimming pool and have kept its reverb. Songs about summers that were better afterwards.")},
        {QStringLiteral("Wren Ashdowne"), QStringLiteral("Letters that were never sent, set to a guitar in an open tuning. She sings as if somebody slept in the next room.")},
        {QStringLiteral("Moth Observatory"), QStringLiteral("Guitars drawn to a single lamp. The band lists a moth trap among its instruments and will not say which sound is it.")},
        {QStringLiteral("Forty Small Rivers"), QStringLiteral("A collective without a fixed number of members. Each record follows a river from its source, and each concert ends at the sea.")},
        {QStringLiteral("Anouk Delacroisière"), QStringLiteral("Chansons with sand in their shoes. She grew up on a ferry landing and writes for the quarter of an hour before the boat comes in.")},
        {QStringLiteral("Circuit Bakery"), QStringLiteral("Bakes at four, solders at noon, performs at nine. The patches are kept warm overnight, like the dough.")},
        {QStringLiteral("Sæunn Fjóla"), QStringLiteral("Organ, wind and a choir of one, recorded in a heathland church. The room has no heating, and one can hear that nobody minded.")},
        {QStringLiteral("Juniper Static"), QStringLiteral("Songs found at the end of rented tapes, or written to sound so. Please be kind, and rewind.")},
    };
    // clang-format on
    return all;
}

} // namespace

QString aboutArtist(const QString& name)
{
    return texts().value(name);
}

QString aboutTrack(const QString& title, int number, int tracks, const QString& album, int year)
{
    const QString sentence = number == 1        ? QStringLiteral("“%1” opens “%2” of %3.")
                             : number == tracks ? QStringLiteral("“%1” closes “%2” of %3.")
                                                : QStringLiteral("“%1” is at the heart of “%2” of %3.");
    return sentence.arg(title, album).arg(year);
}

} // namespace zib::demo
