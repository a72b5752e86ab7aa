# For the scripts that count instructions: a machine that others use too changes its speed, but a job takes the same
# instructions each time.

countingProgram=build/release/bin/xmlconfig_counts

# count JOB PROJECTORS: the instructions of one job
count() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null --toggle-collect=countedJob "$countingProgram" "$1" "$2" 2>&1 |
        awk '/Collected/ { print $4 }'
}
