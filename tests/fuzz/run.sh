#!/bin/sh
# Runs a fuzzer over a writable corpus and the seeds: run.sh FUZZER FOUND SEEDS
# 60 s, or 600 s when ORIM_LONG is set. Ends with an error when an input crashed, took over 1 s or over 512 MB.
fuzzer=$1 found=$2 seeds=$3
seconds=60
[ -n "${ORIM_LONG+set}" ] && seconds=600
dictionary=$seeds.dict
[ -f "$dictionary" ] && set -- "-dict=$dictionary" || set --
ASAN_OPTIONS="$ASAN_OPTIONS:quarantine_size_mb=64" exec "$fuzzer" -max_total_time=$seconds -timeout=1 -rss_limit_mb=512 \
  -verbosity=0 -print_final_stats=1 "-artifact_prefix=$found/../" "$@" "$found" "$seeds"
