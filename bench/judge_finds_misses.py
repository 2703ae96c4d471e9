#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""A judge that cannot say no proves nothing: bench/judge.py is shown runs with a planted miss, with planted noise, with a sample that is not there,
and tables that cannot be read."""

import json
import os
import subprocess
import sys
import tempfile
import unittest

JUDGE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "judge.py")
STEADY = [100, 101, 99, 100, 102, 98, 100]
LINE = "a list\tms\tList/ours\tList/bare\tList/peer\t1.2\t-\n"


class JudgeTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def judged(self, samples, bounds=LINE, *options):
        folder = os.path.join(self.folder.name, "samples")
        os.makedirs(folder, exist_ok=True)
        for program, values in samples.items():
            with open(os.path.join(folder, program + ".json"), "w", encoding="utf-8") as file:
                json.dump(values, file)
        table = os.path.join(self.folder.name, "bounds.tsv")
        with open(table, "w", encoding="utf-8") as file:
            file.write("# a table\n" + bounds)
        self.results = os.path.join(self.folder.name, "results.json")
        return subprocess.run([sys.executable, "-B", JUDGE, folder, "--bounds", table, "--json", self.results, *options],
                              capture_output=True, text=True, check=False)

    def list_of(self, ours, bare=None, peer=None):
        return {"List": {"ours": ours, "bare": bare or STEADY, "peer": peer or STEADY}}

    def verdicts(self):
        with open(self.results, encoding="utf-8") as file:
            return [result["verdict"] for result in json.load(file)["results"]]

    def test_held(self):
        run = self.judged(self.list_of([110, 111, 109, 110, 112, 108, 110]))
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        self.assertEqual(self.verdicts(), ["held"])

    def test_planted_miss(self):
        run = self.judged(self.list_of([130, 131, 129, 130, 132, 128, 130]))
        self.assertEqual(run.returncode, 1)
        self.assertIn("MISSED", run.stdout)
        self.assertEqual(self.verdicts(), ["missed"])

    def test_miss_beside_what_is_held(self):
        lines = LINE + "another\tms\tList/slow\tList/bare\t-\t1.2\t-\n"
        samples = self.list_of(STEADY)
        samples["List"]["slow"] = [200, 201, 199, 200, 202, 198, 200]
        self.assertEqual(self.judged(samples, lines).returncode, 1)
        self.assertEqual(self.verdicts(), ["held", "missed"])

    def test_planted_noise(self):
        # The median is beyond the bound, but so much else could have come out.
        run = self.judged(self.list_of([90, 170, 100, 130, 180, 95, 150]))
        self.assertEqual(run.returncode, 0, run.stdout)
        self.assertIn("within noise", run.stdout)
        self.assertEqual(self.verdicts(), ["noise"])

    def test_noise_hides_no_great_miss(self):
        run = self.judged(self.list_of([300, 420, 350, 390, 500, 310, 450]))
        self.assertEqual(run.returncode, 1)
        self.assertEqual(self.verdicts(), ["missed"])

    def test_one_outlier_is_no_miss(self):
        self.judged(self.list_of([100, 101, 99, 100, 102, 98, 900]))
        self.assertEqual(self.verdicts(), ["held"])

    def test_figure_by_itself(self):
        line = "a stall\tms\tList/ours\t-\t-\t-\t16\n"
        self.assertEqual(self.judged(self.list_of([15, 14, 15, 15, 14]), line).returncode, 0)
        self.assertEqual(self.judged(self.list_of([25, 24, 25, 25, 24]), line).returncode, 1)
        self.assertEqual(self.verdicts(), ["missed"])

    def test_both_bounds_count(self):
        line = "a file\tms\tList/ours\tList/bare\t-\t1.3\t50\n"
        self.assertEqual(self.judged(self.list_of(STEADY), line).returncode, 1)
        self.assertEqual(self.judged(self.list_of([40, 41, 39, 40]), line).returncode, 0)

    def test_absent_sample(self):
        for samples in ({}, {"List": {"ours": STEADY, "bare": STEADY}}, {"List": {"ours": [], "bare": STEADY, "peer": STEADY}}):
            run = self.judged(samples)
            self.assertEqual(run.returncode, 1)
            self.assertIn("NOT MEASURED", run.stdout)
            self.assertEqual(self.judged(samples, LINE, "--names").returncode, 1)
        self.assertEqual(self.judged(self.list_of(STEADY), LINE, "--names").returncode, 0)

    def test_names_judge_no_speed(self):
        self.assertEqual(self.judged(self.list_of([500] * 7), LINE, "--names").returncode, 0)

    def test_only_some_programs(self):
        lines = LINE + "another\tms\tElse/ours\t-\t-\t-\t5\n"
        self.assertEqual(self.judged(self.list_of(STEADY), lines).returncode, 1)
        self.assertEqual(self.judged(self.list_of(STEADY), lines, "--only", "List").returncode, 0)
        self.assertEqual(self.judged(self.list_of(STEADY), lines, "--only", "Nobody").returncode, 1)

    def test_table_that_cannot_be_read(self):
        for line in ("a list\tms\tList/ours\n", "a list\tms\tList/ours\t-\t-\t1.2\t-\n", "a list\tms\t-\t-\t-\t-\t-\n", LINE.replace("1.2", "fast")):
            self.assertNotEqual(self.judged(self.list_of(STEADY), line).returncode, 0)


if __name__ == "__main__":
    unittest.main()
