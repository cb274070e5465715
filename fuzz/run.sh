#!/usr/bin/env bash
# Runs every reader's fuzz target in turn: fuzz/run.sh BUILD SECONDS [READER...]
# Extra libFuzzer flags may come in FUZZ_FLAGS (e.g. -runs=1000000).
set -u
build=$1
seconds=$2
shift 2
root=$(cd "$(dirname "$0")/.." && pwd)
readers=("$@")
if [ ${#readers[@]} -eq 0 ]; then
  for target in "$build"/fuzz/fuzz_*; do readers+=("${target##*/fuzz_}"); done
fi
# The feeders write each input to a scratch file: on a memory file system
# that costs a tenth of what it costs on disk.
[ -d /dev/shm ] && export TMPDIR=/dev/shm
status=0
for reader in "${readers[@]}"; do
  corpus="$build/corpus/$reader"
  regressions="$root/tests/fuzz_regressions/$reader"
  mkdir -p "$corpus" "$regressions"
  echo "== fuzz_$reader for ${seconds}s"
  # One job in one process; the step files of the model go to a scratch folder.
  log="$build/fuzz_$reader.log"
  "$build/fuzz/fuzz_$reader" "$corpus" "$root/fuzz/seeds/$reader" \
      -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -malloc_limit_mb=512 -max_len=65536 \
      -artifact_prefix="$regressions/" -print_final_stats=1 ${FUZZ_FLAGS:-} >"$log" 2>&1 || status=1
  grep -E "^(stat::number_of_executed_units|==[0-9]+==ERROR|SUMMARY|Test unit written|artifact_prefix)" "$log"
done
exit $status
