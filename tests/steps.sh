# For ./test (bash): steps, of which several may run side by side. When a step
# ends, one line says how it went and in how many seconds; above it stands what
# the step wrote, if it failed. All of that is kept in $log.

log=build/test-logs
rm -rf "$log"
mkdir -p "$log"
: >"$log/counts" >"$log/skipped"

# Tells of a step, whole also when others end at the same time, counts, and lets
# those go on that wait for it.
ended() {  # NAME PASSED FAILED TEXT
  local seconds=$((SECONDS - begin))
  {
    flock 9
    echo "$2 $3" >&9
    if [ "$3" = 0 ]; then
      echo "ok      $1$4 ($seconds s)"
    else
      grep -v '^\[==========\]\|^\[  PASSED  \]' "$log/$1.log" | tail -n 200
      echo "FAILED  $1$4 ($seconds s)"
    fi
  } 9>>"$log/counts"
  if [ "$3" = 0 ]; then : >"$log/$1.ok"; else : >"$log/$1.failed"; fi
}

# One check that either holds or not.
check() {  # NAME COMMAND...
  local name=$1 begin=$SECONDS failed=0
  shift
  "$@" >"$log/$name.log" 2>&1 || failed=1
  ended "$name" $((1 - failed)) $failed ''
  return $failed
}

# A GoogleTest program. One that crashes counts as a failed test of its own.
suite() {  # NAME COMMAND...
  local name=$1 begin=$SECONDS status=0 good bad
  shift
  "$@" --gtest_brief=1 --gtest_print_time=0 >"$log/$name.log" 2>&1 || status=$?
  good=$(sed -n 's/^\[  PASSED  \] \([0-9]*\) tests\{0,1\}\..*/\1/p' "$log/$name.log" | tail -1)
  bad=$(grep -c '^\[  FAILED  \] .*\.' "$log/$name.log")
  good=${good:-0}
  [ $status -ne 0 ] && [ "$bad" = 0 ] && bad=1
  [ $status -eq 0 ] && [ "$good" = 0 ] && bad=1
  ended "$name" "$good" "$bad" ": $good of $((good + bad)) tests"
}

# Waits for a step of another lane; false when it failed.
after() {  # NAME
  until [ -e "$log/$1.ok" ] || [ -e "$log/$1.failed" ]; do sleep 0.2; done
  [ -e "$log/$1.ok" ]
}

# Runs lanes of steps, each in a shell and with a registry file of its own.
side_by_side() {  # FUNCTION...
  local lane begin=$SECONDS
  trap 'trap - TERM; kill 0' INT TERM
  for lane; do
    ( TRELIN_REGISTRY=$PWD/build/$lane.reg; "$lane"; : >"$log/$lane.done" ) &
  done
  wait
  for lane; do
    [ -e "$log/$lane.done" ] || { : >"$log/$lane.log"; ended "$lane" 0 1 ' stopped on its way'; }
  done
}

skip() {  # WHAT WHY
  echo "SKIPPED $1 ($2)" >>"$log/skipped"
}

skip_platform() {  # WHAT WHY
  skip "$@"
  [ "${TRELIN_ALL_PLATFORMS-}" != 1 ] || echo '0 1' >>"$log/counts"
}

finish() {
  cat "$log/skipped"
  awk '{ passed += $1; failed += $2 } END { print passed + 0 " passed, " failed + 0 " failed"; exit failed > 0 }' "$log/counts"
  exit
}
