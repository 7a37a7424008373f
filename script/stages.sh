# How scripts tell what they are doing: a line a stage, with the seconds that it took. On a terminal the stage that
# is running shows how far it is. What a stage prints is shown whole when it fails, and else not at all.

started=$SECONDS
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
[ -t 1 ] && [ -z "${CI:-}" ] && lively=yes || lively=

# told SECONDS TEXT: the line of a stage that has ended.
told() {
  [ -z "$lively" ] || printf '\r\033[K'
  printf '%4d s  %s\n' "$1" "$2"
}

# stage TEXT COMMAND...: runs the command.
stage() {
  local text=$1 begun=$SECONDS
  shift
  [ -z "$lively" ] || printf '        %s' "$text"
  if ! "$@" >"$work/log" 2>&1; then
    told $((SECONDS - begun)) "$text: FAILED"
    cat "$work/log"
    return 1
  fi
  told $((SECONDS - begun)) "$text"
}

# configured PRESET: its build folder is there. Ninja keeps it up to date from then on. The presets release and
# device share one folder, which has the device slices from the first time on that they were asked for.
configured() {
  local folder
  folder=$(build_folder "$1")
  if [ -f "$folder/build.ninja" ]; then
    [ "$1" != device ] || ! grep -q '^TILO_DEVICE:BOOL=OFF' "$folder/CMakeCache.txt" || stage "setting up the device slices" cmake --preset "$1"
  else
    stage "setting up $folder/" cmake --preset "$1"
  fi
}

build_folder() {
  case $1 in
    release | device) echo build ;;
    *) echo "build/$1" ;;
  esac
}

# build PRESET TEXT TARGET...: compiles, with a process a processor: more take a tenth longer.
build() {
  local preset=$1 text=$2 begun=$SECONDS status=0
  shift 2
  configured "$preset" || return 1
  if [ -n "$lively" ]; then
    (cd "$(build_folder "$preset")" && NINJA_STATUS="        $text, %f of %t  " ninja -j "$(nproc)" "$@") || status=$?
    # Over the line that ninja leaves behind.
    [ "$status" -ne 0 ] || printf '\033[A'
  else
    ninja -C "$(build_folder "$preset")" -j "$(nproc)" --quiet "$@" >"$work/log" 2>&1 || status=$?
  fi
  if [ "$status" -ne 0 ]; then
    told $((SECONDS - begun)) "$text: FAILED"
    [ -n "$lively" ] || cat "$work/log"
    return 1
  fi
  told $((SECONDS - begun)) "$text"
}
