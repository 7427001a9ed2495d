# For scripts (bash) that use the programs on a display of their own, with mouse
# and keyboard. What is in pids ends with the script.

pids=()
trap 'kill "${pids[@]}" 2>/dev/null || true' EXIT

open_display() {
  local number
  exec {answer}< <(exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null)
  pids+=($!)
  read -r -t 30 number <&"$answer"
  export DISPLAY=:$number
  unset QT_QPA_PLATFORM WAYLAND_DISPLAY
}

# With a window manager.
start_display() {
  open_display
  icewm -t win95/default.theme -c /dev/null >/dev/null 2>&1 &
  pids+=($!)
}

# Waits until a window of that title is there.
window() {
  local id
  for _ in $(seq 150); do
    id=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1)
    [ -z "$id" ] || { echo "$id"; return; }
    sleep 0.1
  done
  echo "The window \"$1\" did not come." >&2
  return 1
}

until_gone() {  # WINDOW
  while xdotool getwindowname "$1" >/dev/null 2>&1; do sleep 0.2; done
}

# Presses a point of the window, given from the corner of its contents.
press() { xdotool mousemove --window "$1" "$2" "$3" click 1; }

# What the menu's first row shows as its product's status, as a number of the picture.
status() { import -silent -window "$1" -crop 326x16+115+79 txt:- | cksum; }

# Waits until the first row's status is no longer what it was.
status_change() {
  for _ in $(seq 150); do
    [ "$(status "$1")" = "$2" ] || return 0
    sleep 0.1
  done
  echo "The status did not change." >&2
  return 1
}
