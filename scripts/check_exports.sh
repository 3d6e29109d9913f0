#!/bin/sh
# Checks that a plug-in exports GetCFProcCustom and no other symbol:  check_exports.sh PLUGIN
set -eu
exported=$(nm -D --defined-only "$1" | awk '{print $3}')
if [ "$exported" != "GetCFProcCustom" ]; then
    echo "$1 exports:" $exported
    exit 1
fi
echo "$1 exports GetCFProcCustom alone"
