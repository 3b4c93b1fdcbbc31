# fish completion for marquill

set -l commands list show probe set record connect disconnect import export
set -l none "not __fish_seen_subcommand_from $commands"

complete -c marquill -l settings -r -F -d 'Keep the settings in this file'
complete -c marquill -l language -x -a 'en de fr' -d 'Language of all texts'
complete -c marquill -s h -l help -d 'Print what the options are'
complete -c marquill -n $none -l theme -x -a 'system dark light' -d 'Colours of the windows'
complete -c marquill -n $none -l demo -d 'Open a small sample shoot'
complete -c marquill -n $none -l exit-after-first-paint -d 'Quit when the main window has been painted'
complete -c marquill -n $none -l version -d 'Print the version'

# A folder or a movie to be opened may stand where a command may.
complete -c marquill -n $none -F
complete -c marquill -n $none -f -a list -d 'List the clips of a record folder'
complete -c marquill -n $none -f -a show -d 'Show the record of a clip'
complete -c marquill -n $none -f -a probe -d 'Tell what the header of a movie file says'
complete -c marquill -n $none -f -a set -d 'Change what is logged of a clip'
complete -c marquill -n $none -f -a record -d 'Record a take'
complete -c marquill -n $none -f -a connect -d 'Connect placeholders to their media by dates'
complete -c marquill -n $none -f -a disconnect -d 'Part placeholders from their media'
complete -c marquill -n $none -f -a import -d 'Make placeholders that stand for movies'
complete -c marquill -n $none -f -a export -d 'Write the clips of a record folder as a document'

complete -c marquill -n '__fish_seen_subcommand_from list show probe connect' -l json -d 'Print it as JSON'
complete -c marquill -n '__fish_seen_subcommand_from probe' -l timecode -x -d 'Time codes at these times'
complete -c marquill -n '__fish_seen_subcommand_from set' -a 'scene= take= rating= label= comment=' -d 'Key'
complete -c marquill -n '__fish_seen_subcommand_from record' -l name -x -d 'Name of the clip'
complete -c marquill -n '__fish_seen_subcommand_from record' -l scene -x -d 'Scene of the clip'
complete -c marquill -n '__fish_seen_subcommand_from record' -l marker-set -x -d 'Title of the marker set'
complete -c marquill -n '__fish_seen_subcommand_from connect' -l kind -x -a 'qt red-h red-p red-m red-raw p2' -d 'What the camera made'
complete -c marquill -n '__fish_seen_subcommand_from connect' -l media -x -a '(__fish_complete_directories)' -d 'Where the media are'
complete -c marquill -n '__fish_seen_subcommand_from connect' -l converted -x -a '(__fish_complete_directories)' -d 'Where the converted movies are'
complete -c marquill -n '__fish_seen_subcommand_from connect' -l dry-run -d 'Change nothing'
complete -c marquill -n '__fish_seen_subcommand_from connect disconnect' -l clips -r -d 'Only these clips'
complete -c marquill -n '__fish_seen_subcommand_from export' -l format -x -a 'xmeml text tab comma' -d 'What is written'
complete -c marquill -n '__fish_seen_subcommand_from export' -l output -r -F -d 'The document'
complete -c marquill -n '__fish_seen_subcommand_from export' -l labels -x -d 'The labels, by commas'
