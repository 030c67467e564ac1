// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Patterns.h"

namespace zib::demo::patterns {

Words lyrical()
{
    return {"x---x-x-|x-----..", "x-----x-|x-x-x---", "x-x-x---|x---x-..", "..x-x-x-|x------.",
            "x--xx---|x-x-x-.."};
}

Words flowing()
{
    return {"x-xxx-x-|x-xxx---", "xxxxx-x-|x---x-..", "x-x-xxx-|xxx-x---", "x--xx-x-|xxx-x-.."};
}

Words sparse()
{
    return {"x-------|....x---", "x-----x-|x-------", "....x-x-|x-------", "x---x---|x------."};
}

Words syncopated()
{
    return {"x--x--x-|..x-x---", ".xx-x-x-|-x----..", "x-xx-xx-|-x-x----", "x--x-x-x|-x----.."};
}

Words swung()
{
    return {".x-xxx-x|-x------", "x-xxx-x.|.xx-x---", "..xxxxxx|x-x-..x-", "x--xx-xx|x-.x-x.."};
}

Words pulsing()
{
    return {"x..x..x.x..x..x.|x..x..x.x---....", "x-.x-.x-x.x-x-..|x-.x-.x-x-------",
            "x---x-x-..x-x---|x-x-x---x-------"};
}

Words turning()
{
    return {"x-x-x-|x---x-", "x---x-|x-xxx-", "x-----|x-x-x-",
            "x-xxx-|x-----", "x---xx|x-x-..", "x-x-xx|x-----"};
}

Words resting()
{
    return {"x-x-x-x-|x------.", "x---x-x-|x-----..", "x-xxx---|x------."};
}

Words turningRest()
{
    return {"x-x-x-|x-----", "x---x-|x----.", "x-xxx-|x-----"};
}

DrumPattern ballad()
{
    return {{{Drum::Kick, "x.........x....."},
             {Drum::Rim, "....o.......o..."},
             {Drum::Shaker, "o.o.o.o.o.o.o.o."}},
            {{Drum::Kick, "x.....x.x.x....."},
             {Drum::Snare, "....x.......x..o"},
             {Drum::ClosedHat, "x.o.x.o.x.o.x.o."}},
            {{Drum::Kick, "x.....x.x......."},
             {Drum::Snare, "....x.......x.xx"},
             {Drum::Tom, ".........x.x...."}}};
}

DrumPattern boomBap()
{
    return {{{Drum::Kick, "x.......o.x....."},
             {Drum::Rim, "....x.......x..."},
             {Drum::ClosedHat, "o...o...o...o..."}},
            {{Drum::Kick, "X..x......x..x.."},
             {Drum::Snare, "....X..o....X..o"},
             {Drum::ClosedHat, "x.o.x.oox.o.x.o."}},
            {{Drum::Kick, "X..x......x....."},
             {Drum::Snare, "....X..o.o..X.ox"},
             {Drum::OpenHat, "..............x."}}};
}

DrumPattern fourOnTheFloor()
{
    return {{{Drum::Kick, "x...x...x...x..."}, {Drum::ClosedHat, "..o...o...o...o."}},
            {{Drum::Kick, "X...X...X...X..."},
             {Drum::Clap, "....x.......x..."},
             {Drum::OpenHat, "..x...x...x...x."},
             {Drum::ClosedHat, "o.o.o.o.o.o.o.oo"},
             {Drum::Shaker, "o.oooo.oo.oooo.o"}},
            {{Drum::Kick, "X...X...X......."},
             {Drum::Clap, "....x.......x.xx"},
             {Drum::OpenHat, "..x...x...x...x."}}};
}

DrumPattern neon()
{
    return {{{Drum::Kick, "x.......x......."}, {Drum::ClosedHat, "o.o.o.o.o.o.o.o."}},
            {{Drum::Kick, "X...x...X...x..."},
             {Drum::Snare, "....X.......X..."},
             {Drum::ClosedHat, "x.ooo.o.x.ooo.o."}},
            {{Drum::Kick, "X...x...X......."},
             {Drum::Snare, "....X.......X.XX"},
             {Drum::Tom, "........x.xx...."}}};
}

DrumPattern brushes()
{
    return {{{Drum::Brush, "x...x...x...x..."}, {Drum::Ride, "o.......o......."}},
            {{Drum::Kick, "o.......o......."},
             {Drum::Ride, "x...x.o.x...x.o."},
             {Drum::ClosedHat, "....x.......x..."},
             {Drum::Brush, "o...x...o...x.o."}},
            {{Drum::Kick, "o.......o.....x."},
             {Drum::Ride, "x...x.o.x...x..."},
             {Drum::Snare, "......o...o.o.x."}}};
}

DrumPattern bossaBeat()
{
    return {{{Drum::Rim, "x.....x.....x..."}, {Drum::Shaker, "o.o.o.o.o.o.o.o."}},
            {{Drum::Kick, "x..ox..ox..ox..o"},
             {Drum::Rim, "x..x..x...x..x.."},
             {Drum::ClosedHat, "o.x.o.x.o.x.o.x."}},
            {{Drum::Kick, "x..ox..ox..ox..o"},
             {Drum::Rim, "x..x..x...x.x.x."},
             {Drum::Shaker, "o.o.o.o.o.o.o.o."}}};
}

DrumPattern shuffle()
{
    return {{{Drum::Kick, "x.......x......."},
             {Drum::Rim, "....x.......x..."},
             {Drum::ClosedHat, "x.o.x.o.x.o.x.o."}},
            {{Drum::Kick, "X.....o.x.....o."},
             {Drum::Snare, "....X.......X.o."},
             {Drum::Ride, "x.o.x.o.x.o.x.o."}},
            {{Drum::Kick, "X.......x......."},
             {Drum::Snare, "....X.o...o.X.x."},
             {Drum::Tom, "..........x....."}}};
}

DrumPattern marching()
{
    return {{{Drum::Kick, "x.......x......."}, {Drum::Ride, "o...o...o...o..."}},
            {{Drum::Kick, "X.....x.X.x....."},
             {Drum::Snare, "....X..o.o..X..o"},
             {Drum::Ride, "x...x...x...x..."}},
            {{Drum::Kick, "X...x...X...x..."},
             {Drum::Snare, "x.xxx.xxx.xxX.XX"},
             {Drum::Tom, "..x...x...x....."}}};
}

DrumPattern waltzBeat()
{
    return {
        {{Drum::Brush, "....o...o..."}}, {{Drum::Kick, "x..........."}, {Drum::Brush, "....x...x.o."}}, {}};
}

} // namespace zib::demo::patterns
