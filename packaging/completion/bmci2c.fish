# Completion of bmci2c for fish. The program says what can come next.

function __bmci2c_complete
    set -l words (commandline -opc)
    set -l current (commandline -ct)
    set -l program $words[1]
    set -e words[1]
    set -l answer ($program complete $words "$current" 2>/dev/null)
    # What stands before a file's name in the same word.
    set -l option (string match -r -- '^-[^=]*=' "$current")
    set -l name (string replace -r -- '^-[^=]*=' '' "$current")
    switch "$answer"
        case :files
            printf '%s\n' "$option"(__fish_complete_path "$name")
        case :folders
            printf '%s\n' "$option"(__fish_complete_directories "$name" '')
        case '*'
            printf '%s\n' $answer
    end
end

complete -c bmci2c -f -a '(__bmci2c_complete)'
