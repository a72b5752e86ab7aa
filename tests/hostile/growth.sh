#!/bin/sh
# hostile/growth.sh [TOOL]: reads, checks, mends, compares and lays out files in which everything is as alike as it can be, or
# refers to everything else, with 1,000 and with 8,000 of its kind. The larger one may take 24 times the time of the processor,
# which is thrice its size, since the time of a busy machine is noise: what looks at all pairs takes 64 times. TOOL should be
# a release.
set -euf
here=$(cd "$(dirname "$0")" && pwd)
tool=${1:-$here/../../build/release/bin/xmlconfig}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
broken=0
few=1000
many=8000
most=24

# made NAME COUNT HEAD BODY: a configuration of HEAD and of what BODY, an expression of perl, gives for n = 0, 1 up to COUNT - 1.
made() {
    perl -e '
        my ($count, $head, $body) = @ARGV;
        my ($one, $nth);
        print "<ConfigInfo><Version>9.000</Version>", $head =~ s/\{(.*?)\}/join(",", map { my $n = $_; eval $1 } 0 .. $count - 1)/er;
        $nth = eval "sub { my \$n = shift; $body }" or die;
        print $nth->($_) for 0 .. $count - 1;
        print "</ConfigInfo>\n"' -- "$2" "$3" "$4" > "$work/$1"
}

# seconds ARGUMENTS: the time of the processor that the tool takes for them, the shortest of three; 1e9 where it fails.
seconds() {
    shortest=
    for _ in 1 2 3; do
        [ ! -f "$work/one" ] || cp "$work/one" "$work/mended"
        status=0
        (ulimit -t 120; ulimit -v 8000000; exec /usr/bin/time -q -f '%U %S' -o "$work/figures" "$tool" "$@" > "$work/out" 2> "$work/message") || status=$?
        if [ "$status" -gt 1 ] || [ ! -s "$work/out" ]; then
            echo 1e9
            return
        fi
        read -r user system < "$work/figures"
        shortest=$(awk "BEGIN { t = $user + $system; print t < ${shortest:-1e9} ? t : ${shortest:-1e9} }")
    done
    echo "$shortest"
}

# compare NAME VERB HEAD BODY [HEAD BODY]: VERB is what stands before the files, as in "check --fix", or around them, as in
# "get {} ADDRESS".
compare() {
    name=$1
    verb=$2
    for count in $few $many; do
        made one "$count" "$3" "$4"
        files="$work/mended"
        if [ $# -gt 4 ]; then
            made two "$count" "$5" "$6"
            files="$work/one $work/two"
        fi
        case $verb in
            *'{}'*) arguments="${verb%%'{}'*}$files${verb#*'{}'}" ;;
            *) arguments="$verb $files" ;;
        esac
        # shellcheck disable=SC2086
        time=$(seconds $arguments)
        [ "$count" = $many ] || first=$time
    done
    verdict=ok
    awk "BEGIN { exit !($time == 1e9 || $time > $most * ($first > 0.02 ? $first : 0.02)) }" && { verdict=BROKEN; broken=$((broken + 1)); }
    printf '%-34s %-34s %8s s %8s s  %s\n' "$name" "$verb" "$first" "$time" "$verdict"
}

channel='<Channel_Extents><Heading><Yaw>0.3</Yaw><Pitch>0</Pitch></Heading><HFOV><Left>-0.5</Left><Right>0.5</Right></HFOV><VFOV><Top>0.4</Top><Bottom>-0.4</Bottom></VFOV></Channel_Extents>'
sphere='<Screen><Shape>Sphere</Shape><Screen_Radius>5</Screen_Radius><Screen_MinTheta>-3</Screen_MinTheta><Screen_MaxTheta>3</Screen_MaxTheta><Screen_MinPhi>-1</Screen_MinPhi><Screen_MaxPhi>1</Screen_MaxPhi></Screen>'

for verb in check layout; do
    compare 'all at one place' $verb "$sphere" "\"<Projector ID='\$n'><Name>A</Name>$channel</Projector>\""
done
compare 'all with one ID' check '' "\"<Projector ID='1'><Name>A</Name>$channel</Projector>\""
compare 'all with one ID' 'check --fix' '' "\"<Projector ID='1'><Name>A</Name>$channel</Projector>\""
compare 'all with new IDs at one place' diff '' "\"<Projector ID='a\$n'><Name>A</Name>$channel</Projector>\"" \
    '' "\"<Projector ID='b\$n'><Name>A</Name>$channel</Projector>\""
compare 'all renamed, defaults stored' diff '' "\"<Projector ID='a\$n'><Portrait_Mode>0</Portrait_Mode></Projector>\"" \
    '' "\"<Projector ID='b\$n'><OldSectionID>a\$n</OldSectionID><Box_Spacing>1.5</Box_Spacing></Projector>\""
compare 'each finding accepted' check '' "\"<Projector ID='\$n'><!-- xmlconfig accepts XC309: so --></Projector>\""
compare 'each finding accepted in the root' check '' "\"<!-- xmlconfig accepts XC309: so --><Projector ID='\$n'/>\""
compare 'acceptances of what is gone' 'check --fix' '' "\"<Projector ID='\$n'><!-- xmlconfig accepts XC408: so --></Projector>\""
compare 'cameras beside their order' check '<Color><CameraOrder>0</CameraOrder></Color>' "\"<Camera ID='\$n'/>\""
# shellcheck disable=SC2016
compare 'renamed cameras in the order' 'check --fix' '<Color><CameraOrder>{$n}</CameraOrder></Color>' \
    "\"<Camera ID='c\$n'><OldSectionID>\$n</OldSectionID></Camera>\""
# shellcheck disable=SC2016
compare 'a mask for each camera' check '' 'sprintf("<Camera ID=\"%d\"><DeviceSnippet><device UID=\"%d\"><ipAddress>10.0.%d.%d</ipAddress><subnetMask>255.%d.%d.1</subnetMask></device></DeviceSnippet></Camera><Projector ID=\"%d\"><DeviceSnippet><device UID=\"%d\"><connection><address>11.0.%d.%d</address><port>1</port></connection></device></DeviceSnippet></Projector>", $n, $n, $n >> 8, $n & 255, $n >> 8, $n & 255, $n, $n, $n >> 8, $n & 255)'
compare 'a name below as many folders' check '<Screen><VRML>{"./" x 20}</VRML></Screen>' '""'
for verb in 'get --human {} Projector[*]/Gamma' 'get --json {} Projector[*]/Gama'; do
    compare 'the same of each device' "$verb" '' "\"<Projector ID='\$n'><Name>P\$n</Name><Gamma>2.5</Gamma></Projector>\""
done
echo "$broken broken promises"
[ "$broken" = 0 ]
