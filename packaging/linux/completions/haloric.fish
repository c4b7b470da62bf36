# fish completion for haloric
complete -c haloric -f
complete -c haloric -n __fish_is_first_token -s h -l help -d 'Show a summary of the options'
complete -c haloric -n __fish_is_first_token -l version -d 'Show the version'
complete -c haloric -n __fish_is_first_token -l diagnostics -d 'Show what of the desktop is in use'
complete -c haloric -n __fish_is_first_token -l settings -d 'Open the settings window of the running instance'
complete -c haloric -n __fish_is_first_token -l quit -d 'End the running instance'
complete -c haloric -n __fish_is_first_token -l toggle -x -a 'border glow tint dim pulse' -d 'Switch an effect on or off'
complete -c haloric -n __fish_is_first_token -l print-settings -d 'Write the settings as JSON'
