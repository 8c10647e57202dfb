#!/usr/bin/env python3
"""tools/check-layers fails on each kind of wrong include, and on nothing else."""
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class CheckLayers(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())) \
            if hasattr(self, "enterContext") else pathlib.Path(tempfile.mkdtemp())
        (self.root / "tools").mkdir()
        shutil.copy(ROOT / "tools/layers.txt", self.root / "tools")

    def tearDown(self):
        shutil.rmtree(self.root, ignore_errors=True)

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def check(self):
        return subprocess.run([sys.executable, ROOT / "tools/check-layers", self.root],
                              capture_output=True, text=True)

    def expect_problem(self, path, text, words):
        self.write(path, text)
        result = self.check()
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertIn(f"{path}:1", result.stderr)
        self.assertIn(words, result.stderr)

    def test_own_and_lower_layers_pass(self):
        self.write("frame/a.h", "")
        self.write("view/b.h", '#include "frame/a.h"\n#include <QString>\n')
        self.write("view/docks/c.cpp", '#include "view/b.h"\n#include <QWidget>\n')
        self.assertEqual(self.check().returncode, 0, self.check().stderr)

    def test_an_upward_include_fails(self):
        self.write("view/viewer.h", "")
        self.expect_problem("data/io/kernel.cpp", '#include "view/viewer.h"\n', "higher layer view")

    def test_the_longest_folder_names_the_layer(self):
        self.write("simulation/panel/list.h", "")
        self.expect_problem("simulation/ui/a.cpp", '#include "simulation/panel/list.h"\n', "higher layer simulation/panel")

    def test_an_include_relative_to_the_file_is_followed_too(self):
        self.write("simulation/panel/panel.h", "")
        self.expect_problem("simulation/item.cpp", '#include "panel/panel.h"\n', "simulation/panel")

    def test_a_widget_in_a_plain_half_fails(self):
        self.expect_problem("frame/a.cpp", "#include <QMessageBox>\n", "widget header")

    def test_a_widget_half_in_a_plain_half_fails(self):
        for folder in ("frame/ui", "view/docks", "view/dialogs", "simulation/panel", "window"):
            self.write(f"{folder}/box.h", "")
            self.expect_problem("modules/plot3d/a.cpp", f'#include "{folder}/box.h"\n', "of a widget half")

    def test_a_file_in_no_layer_fails(self):
        self.write("modules/new/a.cpp", "")
        result = self.check()
        self.assertEqual(result.returncode, 1)
        self.assertIn("in no folder", result.stderr)

    def test_the_project_itself_passes(self):
        result = subprocess.run([sys.executable, ROOT / "tools/check-layers"], capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr)


if __name__ == "__main__":
    unittest.main()
