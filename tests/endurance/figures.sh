# Functions for what runs beside a CIM server for long: what its processes hold, and whether that grows. To be sourced.

# The process that has the module mapped; nothing where it is not loaded.
holder()
{
    local maps
    for maps in /proc/[0-9]*/maps; do
        if grep -q 'libSystemProvider\.so' "$maps" 2>/dev/null; then
            maps=${maps#/proc/}
            echo "${maps%/maps}"
            return
        fi
    done
}

# sample NAME NUMBER PROCESS: writes down what the process holds after so many of what has this name
sample()
{
    local bytes descriptors
    [ -n "$3" ] || { echo "no process has the module"; exit 1; }
    bytes=$(awk '/^Anonymous:/ { print $2 * 1024 }' "/proc/$3/smaps_rollup")
    descriptors=$(find "/proc/$3/fd" -mindepth 1 | wc -l)
    printf '%8d %s %10d bytes %4d descriptors, process %d\n' "$2" "$1" "$bytes" "$descriptors" "$3"
    echo "$2 $bytes $descriptors" >>"$VQ_SCRATCH/samples"
}

# judge NAME ALLOWED: whether the second half of the samples grew by no more than these bytes, and the slope over it
judge()
{
    awk -v name="$1" -v allowed="$2" '
        { x[NR] = $1; y[NR] = $2; d[NR] = $3 }
        END {
            for (i = int(NR / 2) + 1; i <= NR; ++i) { ++n; sx += x[i]; sy += y[i]; sxx += x[i] * x[i]; sxy += x[i] * y[i] }
            middle = int(NR / 2)
            printf "slope of the second half: %.1f bytes for a thousand %s; grown by %d bytes and %d descriptors\n",
                1000 * (n * sxy - sx * sy) / (n * sxx - sx * sx), name, y[NR] - y[middle], d[NR] - d[middle]
            exit y[NR] - y[middle] > allowed || d[NR] > d[middle]
        }' "$VQ_SCRATCH/samples"
}
