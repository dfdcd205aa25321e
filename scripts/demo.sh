#!/usr/bin/env bash
# Runs Orvane's main job on the bundled demo session examples/demo/demo.o2: installs what is
# missing, builds into build/ (shared with scripts/test.sh), generates the demo data when it is
# incomplete or older than the generator, then opens the session in the main window or, without a
# display or with --export, exports every chart of the session as PNG, SVG and PDF.
set -euo pipefail
# an export folder given on the command line is relative to where the user started the script
START_DIR="$PWD"
cd "$(dirname "$0")/.."

SESSION=examples/demo/demo.o2
REQUESTS=examples/demo/export-requests.txt
DATA_DIR=examples/demo/data
STAMP="$DATA_DIR/.generated"
APP=build/OrvaneApp/OrvaneApp
GENERATOR=build/tools/SampleDataGenerator/SampleDataGenerator

usage() {
	cat <<'EOF'
Usage: scripts/demo.sh [--export [DIR]] [--help]

Shows what Orvane does on the bundled demo session (examples/demo/demo.o2, seven charts of a
simulated brick wall and wall corner). First installs missing Debian packages (as root, or
through sudo), builds into build/ and generates the demo data into examples/demo/data.

  (no option)     With a display (DISPLAY or WAYLAND_DISPLAY set): opens the main window on the
                  demo session. Without a display: exports as with --export.
  --export [DIR]  Exports every chart of the session to PNG, SVG and PDF files in DIR (default:
                  demo-output/ in the source tree) and lists them. Fails when a file is
                  missing.
  -h, --help      Shows this text.
EOF
}

# exports every chart through one scripted run of the program and checks the files
export_charts() {
	local dir="$1"
	mkdir -p "$dir"
	local requests session
	requests="$(realpath "$REQUESTS")"
	session="$(realpath "$SESSION")"
	local expected=()
	local line f
	while IFS= read -r line; do
		[ -n "$line" ] && expected+=("${line##*:}")
	done < "$requests"
	for f in "${expected[@]}"; do
		rm -f "$dir/$f"
	done

	echo "Exporting the charts of $SESSION into $dir/ ..."
	local app
	app="$(realpath "$APP")"
	# the file names in the requests file are relative: the program runs in the target folder
	if ! (cd "$dir" && "$app" --no-splash=true "$session" --generate-charts="$requests"); then
		echo "scripts/demo.sh: OrvaneApp failed while exporting the charts." >&2
		exit 1
	fi

	local missing=0
	for f in "${expected[@]}"; do
		if [ ! -s "$dir/$f" ]; then
			echo "scripts/demo.sh: missing or empty export file $dir/$f" >&2
			missing=1
		fi
	done
	(cd "$dir" && ls -l "${expected[@]}" 2>/dev/null) || true
	if [ "$missing" -ne 0 ]; then
		echo "scripts/demo.sh: the export failed; see the messages above and the log file" \
			 "$HOME/AppData/Roaming/OrvaneApp/OrvaneApp.log." >&2
		exit 1
	fi
	echo "Exported ${#expected[@]} files into $dir/."
}

# true when every data file the session refers to ("./data/..." relative to it) is there
session_data_present() {
	local f
	for f in $(sed -n 's:.*<DataIOFileName2\{0,1\}>\./\([^<]*\)<.*:\1:p' "$SESSION" | sort -u); do
		[ -f "$(dirname "$SESSION")/$f" ] || return 1
	done
}

export_dir=""
export_requested=false
while [ $# -gt 0 ]; do
	case "$1" in
		--export)
			export_requested=true
			if [ $# -gt 1 ] && [[ "$2" != -* ]]; then
				export_dir="$2"
				shift
			fi
			;;
		--export=*)
			export_requested=true
			export_dir="${1#--export=}"
			if [ -z "$export_dir" ]; then
				echo "scripts/demo.sh: --export= needs a folder" >&2
				exit 2
			fi
			;;
		-h|--help)
			usage
			exit 0
			;;
		*)
			echo "scripts/demo.sh: unknown argument '$1'" >&2
			usage >&2
			exit 2
			;;
	esac
	shift
done
if [ -z "$export_dir" ]; then
	export_dir=demo-output
elif [[ "$export_dir" != /* ]]; then
	export_dir="$START_DIR/$export_dir"
fi

source scripts/deps.sh
orvane_install_deps
orvane_build

# the data is generated, not stored: again when the generator was rebuilt after the last run or
# a file is missing. The folder is emptied first, so that no file an older generator wrote under
# another name stays behind in the data manager's listing.
if [ ! -f "$STAMP" ] || [ "$GENERATOR" -nt "$STAMP" ] || ! session_data_present; then
	echo "Generating the demo data into $DATA_DIR/ ..."
	rm -rf "$DATA_DIR"
	mkdir -p "$DATA_DIR"
	"$GENERATOR" --dir="$DATA_DIR" | tail -n 1
	touch "$STAMP"
fi

if [ "$export_requested" = false ] && { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }; then
	exec "$APP" --no-splash=true "$SESSION"
fi
if [ "$export_requested" = false ]; then
	echo "No display (DISPLAY and WAYLAND_DISPLAY are not set): exporting the charts instead."
fi
export_charts "$export_dir"
