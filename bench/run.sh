#!/usr/bin/env bash
# Times whole pandrel-cli processes on the benchmark handhelds and prints, per case, the median
# and the slowest of the runs, the median processor time (user + system: what the program costs
# when other work shares the machine) and the peak memory. Usage: bench/run.sh [RUNS] (default 15).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="${PANDREL_BUILD:-$root/build}"
runs="${1:-15}"
inputs="$build/bench-inputs-data"
cli="$build/pandrel-cli"

cmake --build "$build" --target pandrel-cli bench-inputs >/dev/null
mkdir -p "$build/bench-out"
[ -f "$inputs/big/BenchBig.pdb" ] && [ -f "$inputs/report/BenchReport.pdb" ] &&
    [ -f "$inputs/many.zip" ] && [ -f "$inputs/estandar/DatebookDB.pdb" ] ||
    "$build/bench/bench-inputs" "$inputs"
# The exports of the built-in applications' databases are timed beside Perl's Palm modules
# loading the same files (Debian: libpalm-perl).
if ! perl -MPalm::PDB -MPalm::Address -MPalm::Datebook -e 1 2>/dev/null; then
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    echo "Installing: libpalm-perl"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq libpalm-perl >/dev/null
fi

# measure NAME RUNS COMMAND...: runs the command RUNS times with its output to /dev/null.
measure() {
    python3 - "$@" <<'PY'
import resource, statistics, subprocess, sys, time
name, runs, command = sys.argv[1], int(sys.argv[2]), sys.argv[3:]
def cpu():
    uso = resource.getrusage(resource.RUSAGE_CHILDREN)
    return (uso.ru_utime + uso.ru_stime) * 1000
times, cpus = [], []
for i in range(runs):
    args = [a.replace("{i}", str(i)) for a in command]
    before = cpu()
    start = time.perf_counter()
    subprocess.run(args, stdout=subprocess.DEVNULL, check=True)
    times.append((time.perf_counter() - start) * 1000)
    cpus.append(cpu() - before)
peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
print(f"{name:<34} median {statistics.median(times):6.1f} ms   max {max(times):6.1f} ms"
      f"   cpu {statistics.median(cpus):6.1f} ms   peak {peak:5.1f} MB")
PY
}

big=$(stat -c %s "$inputs/big/BenchBig.pdb")
echo "BenchBig.pdb: $((big / 1024)) KB, 65535 records; many/: $(ls "$inputs/many" | wc -l) files"
measure "records (65,535 x 8 fields)" "$runs" "$cli" --handheld "$inputs/big" records BenchBig
measure "export (65,535 x 8 fields, tab)" "$runs" "$cli" --handheld "$inputs/big" export BenchBig "$build/bench-out/BenchBig.txt"
measure "export --csv (65,535 x 8 fields)" "$runs" "$cli" --handheld "$inputs/big" export BenchBig "$build/bench-out/BenchBig.csv" --csv
measure "report (2,000 rows to PDF)" "$runs" "$cli" --handheld "$inputs/report" report BenchReport --pdf "$build/bench-out/BenchReport.pdf"
measure "creators --kind appforge (1,000)" "$runs" "$cli" --handheld "$inputs/many" creators --kind appforge
measure "update one String, mid-database" "$runs" "$cli" --handheld "$inputs/big" update BenchBig 1081344 4 "Customer {i}"
measure "creators --kind appforge (1,000 zip)" "$runs" "$cli" --handheld "$inputs/many.zip" creators --kind appforge
measure "update one String in the 1,000 zip" "$runs" "$cli" --handheld "$inputs/many.zip" update Bench0000 1048577 4 "Customer {i}"
# Each export starts with the disk done with the files the cases before wrote, as its own flush
# would otherwise wait behind theirs.
estandar="$inputs/estandar"
sync
measure "export 5,000 events to iCalendar" "$runs" "$cli" --handheld "$estandar" export DatebookDB "$build/bench-out/calendar.ics"
measure "Perl: load the 5,000 events" "$runs" perl -MPalm::PDB -MPalm::Datebook -e 'Palm::PDB->new->Load($ARGV[0])' "$estandar/DatebookDB.pdb"
sync
measure "export 10,000 contacts to vCard" "$runs" "$cli" --handheld "$estandar" export AddressDB "$build/bench-out/contacts.vcf"
measure "Perl: load the 10,000 contacts" "$runs" perl -MPalm::PDB -MPalm::Address -e 'Palm::PDB->new->Load($ARGV[0])' "$estandar/AddressDB.pdb"

# The windows, on the offscreen platform: start-up to the first explorer's tree, and choosing the
# large database until its panels and first batch show.
cmake --build "$build" --target bench-explorador >/dev/null
QT_QPA_PLATFORM=offscreen "$build/bench/bench-explorador" "$inputs" 5 2>/dev/null
