#!/usr/bin/env bash
# Runs a list of hand-made mutants against the test suite of a source tree.
#
#   scripts/mutation-check.sh [--only ID[,ID...]] SOURCE_TREE [MUTANTS_FILE] [OUT.md]
#
# SOURCE_TREE is copied (without .git and build folders) to a scratch folder
# (MUTATION_SCRATCH, default: a fresh temporary folder) and built once there
# with the options of the `default` preset, in Release mode through ccache.
# The unmutated suite must pass. Then each mutant is applied, the build is
# updated, ctest runs until the first failure, and the file is restored.
#
# MUTANTS_FILE (default: scripts/mutants.txt next to this script) has one
# mutant a line, fields separated by " | ":
#   id | file basename | old text | new text | description
# The file is looked up by basename under src/ tools/ app/ python/; the old
# text must occur exactly once in it. Lines starting with # are ignored.
set -euo pipefail

only=""
if [[ ${1:-} == --only ]]; then only=",$2,"; shift 2; fi
if [[ $# -lt 1 ]]; then sed -n '2,4p' "$0" >&2; exit 2; fi
source_tree=$(realpath "$1")
mutants=$(realpath "${2:-$(dirname "$0")/mutants.txt}")
out=$(realpath "${3:-mutants.md}")

scratch=${MUTATION_SCRATCH:-$(mktemp -d /tmp/mutation.XXXXXX)}
tree=$scratch/tree
build=$scratch/build
export CCACHE_DIR=${CCACHE_DIR:-/work/.ccache} CCACHE_BASEDIR=${CCACHE_BASEDIR:-/work}
log() { echo "[$(date +%T)] $*" >&2; }

# A fresh build too: a build left by an interrupted run may hold a mutant.
copy_tree() {
  rm -rf "$tree" "$build" && mkdir -p "$tree"
  tar -C "$source_tree" --exclude=./.git --exclude='./build*' -cf - . | tar -C "$tree" -xf -
}

configure_and_build() {
  cmake -S "$tree" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DQTZQ_BUILD_BENCHMARKS=ON -DQTZQ_BUILD_PYTHON=ON \
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >"$scratch/configure.log"
  cmake --build "$build" -j2 >"$scratch/build.log" 2>&1
}

# Prints the name of the first failing test of a ctest run, or nothing.
# The run history is removed first: ctest would otherwise start with the tests
# that failed last time and the slowest ones, and the name would depend on the
# mutants before.
first_failure() {
  rm -f "$build"/Testing/Temporary/{CTestCostData.txt,LastTestsFailed*.log}
  if ctest --test-dir "$build" -j2 --stop-on-failure --timeout 300 >"$scratch/ctest.log" 2>&1; then
    return 0
  fi
  local name
  name=$(sed -nE 's/^ *[0-9]+\/[0-9]+ Test +#[0-9]+: ([^ ]+) .*\*\*\*.*/\1/p' "$scratch/ctest.log")
  echo "${name%%$'\n'*}" | grep . || echo "ctest (no test named, see ctest.log)"
}

# The only file with this basename under the source folders.
locate() {
  local found
  found=$(cd "$tree" && find src tools app python -name "$1" -type f 2>/dev/null || true)
  [[ -n $found && $(wc -l <<<"$found") -eq 1 ]] || { log "'$1': not exactly one file"; return 1; }
  echo "$tree/$found"
}

# Replaces OLD by NEW in FILE, failing unless OLD occurs exactly once.
apply_mutant() {
  python3 - "$@" <<'EOF'
import sys
path, old, new = (arg.replace("\\n", "\n") for arg in sys.argv[1:4])
text = open(path, encoding="utf-8").read()
if text.count(old) != 1:
    sys.exit(f"{path}: old text found {text.count(old)} times: {old}")
open(path, "w", encoding="utf-8").write(text.replace(old, new))
EOF
}

start=$SECONDS
log "copying $source_tree to $tree"
copy_tree
log "building (log: $scratch/build.log)"
configure_and_build || { log "the unmutated tree does not build"; exit 1; }
failed=$(first_failure)
[[ -z $failed ]] || { log "the unmutated suite fails ($failed); see $scratch/ctest.log"; exit 1; }
log "unmutated suite passes ($((SECONDS - start)) s)"

rows=() caught=0 survived=0 broken=0 total=0
while IFS= read -r line; do
  [[ -z ${line// } || $line == \#* ]] && continue
  fields=() rest=$line
  while [[ $rest == *" | "* ]]; do fields+=("${rest%% | *}"); rest=${rest#* | }; done
  fields+=("$rest")
  [[ ${#fields[@]} -eq 5 ]] || { log "not five fields: $line"; exit 1; }
  id=${fields[0]} base=${fields[1]} old=${fields[2]} new=${fields[3]} description=${fields[4]}
  [[ -z $only || $only == *",$id,"* ]] || continue
  file=$(locate "$base") || exit 1
  cp "$file" "$scratch/original"
  apply_mutant "$file" "$old" "$new" || exit 1
  total=$((total + 1))
  if ! cmake --build "$build" -j2 >"$scratch/mutant-build.log" 2>&1; then
    result="DOES NOT COMPILE"; broken=$((broken + 1))
  else
    failed=$(first_failure)
    if [[ -n $failed ]]; then result="caught by $failed"; caught=$((caught + 1))
    else result="SURVIVED"; survived=$((survived + 1)); fi
  fi
  cat "$scratch/original" >"$file"   # rewritten, not moved: the build sees it change
  log "$id: $result"
  rows+=("| $id | $base | $description | $result |")
done <"$mutants"
cmake --build "$build" -j2 >"$scratch/build.log" 2>&1 || log "restored tree does not rebuild"

summary="$total mutants: $caught caught, $survived survived, $broken do not compile ($((SECONDS - start)) s)"
{
  echo "# Mutation check of $source_tree"
  echo
  echo "| id | file | mutant | result |"
  echo "|---|---|---|---|"
  printf '%s\n' "${rows[@]}"
  echo
  echo "$summary"
} >"$out"
log "$summary; table in $out"
