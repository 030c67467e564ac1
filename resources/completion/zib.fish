# SPDX-License-Identifier: GPL-3.0-or-later
complete -c zib -l services -x -d 'Speak to the services at this base address'
complete -c zib -l export-library -r -F -d 'Write the library as a property list and end'
complete -c zib -l play-pause -d 'Play, or pause what plays'
complete -c zib -l next -d 'Go to the next song'
complete -c zib -l previous -d 'Go to the beginning of the song, or the one before'
complete -c zib -s h -l help -d 'Show the options'
complete -c zib -s v -l version -d 'Show the version'
