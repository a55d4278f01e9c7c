# Sourced by the other scripts: with --help among the arguments it prints the comment at the script's head, and the script ends.
for argument in "$@"; do
    case $argument in
    -h | --help)
        sed -n '2,/^[^#]/s/^# \{0,1\}//p' "${BASH_SOURCE[1]}"
        exit
        ;;
    esac
done
