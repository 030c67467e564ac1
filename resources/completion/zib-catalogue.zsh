#compdef zib-catalogue
# SPDX-License-Identifier: GPL-3.0-or-later
_arguments \
    '--port[listen on this port]:port:' \
    '--bind[listen on this address]:numeric address:' \
    '--listen-fd[take over a listening socket]:descriptor:' \
    '*--music[index the songs in this folder]:folder:_files -/' \
    '--data[keep the index and the demo songs in this folder]:folder:_files -/' \
    '--database[keep the published playlists on this server]:postgresql address:' \
    '--public-url[the public address of the pages]:address:_urls' \
    '--rate[what each address may ask about playlists a minute]:number:' \
    '--until-stdin-closes[stop when standard input closes]' \
    '(- *)'{-h,--help}'[show the options]' \
    '(- *)--help-all[show the options of the toolkit as well]' \
    '(- *)'{-v,--version}'[show the version]' \
    '1:command:(serve)'
