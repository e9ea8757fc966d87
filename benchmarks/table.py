#!/usr/bin/env python3
"""Prints a short table of Google Benchmark's JSON files: a row for each run, with its time and its own counters."""
import json
import sys

NOT_COUNTERS = {
    "name", "family_index", "per_family_instance_index", "run_name", "run_type", "repetitions", "repetition_index",
    "threads", "iterations", "real_time", "cpu_time", "time_unit", "label", "aggregate_name", "aggregate_unit",
}


def short(number):
    for limit, unit in ((1e9, "G"), (1e6, "M"), (1e3, "k")):
        if abs(number) >= limit:
            return f"{number / limit:.3g}{unit}"
    return f"{number:.4g}"


def row(run):
    if run.get("error_occurred"):
        return f"{run['name']:<56} failed: {run['error_message']}"
    unit = run["time_unit"]
    counters = {key: value for key, value in run.items() if key not in NOT_COUNTERS and isinstance(value, (int, float))}
    told = "  ".join(f"{key.replace('_per_second', '/s')} {short(value)}" for key, value in counters.items())
    return f"{run['name']:<56} {run['real_time']:>10.4g} {unit}  {told}  {run.get('label', '')}".rstrip()


failed = False
for path in sys.argv[1:]:
    with open(path, encoding="utf-8") as file:
        runs = json.load(file)["benchmarks"]
    for run in runs:
        print(row(run))
        failed = failed or run.get("error_occurred", False)
sys.exit(1 if failed else 0)
