#!/usr/bin/env bash
# graph.sh SAMPLES.csv OUT.png: draws a soak's memory over time, in megabytes and minutes, with ImageMagick.
set -eu

samples=$1
picture=$2

# One drawing primitive per line. The axis begins at 0, so that a flat line is flat.
drawing() {
    awk -F, '
        function x(s) { return left + s / seconds * width }
        function y(mb) { return top + height - mb / highest * height }
        NR > 1 { n++; time[n] = $1; mb[n] = $2 / 1024; if (mb[n] > peak) peak = mb[n] }
        END {
            left = 70; top = 40; width = 700; height = 260
            seconds = time[n]
            step = peak > 200 ? 50 : 25
            highest = (int(peak / step) + 1) * step
            print "stroke #D8D8D8 fill none stroke-width 1"
            for (mark = 0; mark <= highest; mark += step)
                printf "line %d,%.1f %d,%.1f\n", left, y(mark), left + width, y(mark)
            print "stroke none fill #404040 font-size 13"
            for (mark = 0; mark <= highest; mark += step) printf "text %d,%.1f \"%d MB\"\n", 12, y(mark) + 4, mark
            minutes = seconds / 60
            every = minutes > 5 ? 1 : minutes > 2 ? 0.5 : 0.25
            for (mark = 0; mark <= minutes + 0.01; mark += every)
                printf "text %.1f,%d \"%g\"\n", x(mark * 60) - 6, top + height + 20, mark
            printf "text %d,%d \"minutes\"\n", left + width - 40, top + height + 38
            print "font-size 15"
            printf "text %d,24 \"Memory of one process that opens the examples again and again (resident set)\"\n", left
            print "stroke #2060C0 fill none stroke-width 2"
            printf "polyline"
            for (i = 1; i <= n; i++) printf " %.1f,%.1f", x(time[i]), y(mb[i])
            printf "\n"
        }' "$samples"
}

convert -size 800x350 xc:white -font DejaVu-Sans -draw "$(drawing)" "$picture"
