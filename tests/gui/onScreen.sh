#!/usr/bin/env bash
# Runs window tests under a virtual screen with a window manager, where a focus is told late and a window has a frame.
#   onScreen.sh TEST_PROGRAM FOLDER [FILTER]
set -euo pipefail
program=$(realpath "$1")
work=$2
filter=${3:-*}
cd "$(dirname "$0")/../.."
source scripts/common.sh
source scripts/screen.sh

start_screen
CALIDORA_ON_SCREEN=1 QT_QPA_PLATFORM=xcb "$program" --gtest_brief=1 --gtest_filter="$filter"
