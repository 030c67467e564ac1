#compdef zib
# SPDX-License-Identifier: GPL-3.0-or-later
_arguments \
    '--services[speak to the services at this base address]:address:_urls' \
    '--export-library[write the library as a property list and end]:file:_files' \
    '--play-pause[play, or pause what plays]' \
    '--next[go to the next song]' \
    '--previous[go to the beginning of the song, from there to the one before]' \
    '(- *)'{-h,--help}'[show the options]' \
    '(- *)'{-v,--version}'[show the version]' \
    '*:sound file or folder:_files'
