#!/usr/bin/env python3
"""The checks on the tree find what they are there to find, and let pass what is right."""
import os
import tempfile
import unittest

import check_tree


def tree(files):
    folder = tempfile.TemporaryDirectory()
    for name, text in files.items():
        path = os.path.join(folder.name, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as f:
            f.write(text)
    return folder


class Layers(unittest.TestCase):
    # File, its include, and a word of the finding; None where the include is right.
    ROWS = [
        ("vrml/fields/A.cpp", '#include "vrml/fields/A.h"', None),
        ("vrml/fields/A.cpp", "#include <charconv>", None),
        ("vrml/fields/A.cpp", '#include "vrml/nodes/Node.h"', "nothing of vrml/nodes"),
        ("vrml/fields/A.cpp", "#include <VekSG/sglNode.h>", "no host header"),
        ("vrml/nodes/A.cpp", '#include "vrml/fields/A.h"', None),
        ("vrml/nodes/A.cpp", '#include "vrml/reader/Parser.h"', "nothing of vrml/reader"),
        ("vrml/reader/A.cpp", '#include "vrml/nodes/Node.h"', None),
        ("vrml/reader/A.cpp", '#include "import/B.h"', "nothing of import"),
        ("image/A.cpp", "#include <VekSG/sglOStream.h>", "no host header"),
        ("image/A.cpp", "#include <png.h>", "standard library alone"),
        ("image/A.cpp", '#include "B.h"', "from the project's root"),
        ("import/A.cpp", "#include <VekSG/sglNode.h>", None),
        ("import/A.cpp", '#include "VekSG/sglNode.h"', "angle brackets"),
        ("import/A.cpp", '#include "export/B.h"', "nothing of export"),
        ("import/A.cpp", "  #  include <glm/glm.hpp>", "standard library alone"),
        ("export/A.cpp", '#include "vrml/nodes/Node.h"', "nothing of vrml/nodes"),
        ("entry/A.cpp", '#include "embedded/B.h"', "nothing of embedded"),
        ("embedded/A.cpp", "#include <glm/glm.hpp>", None),
        ("embedded/A.cpp", '#include "import/B.h"', "nothing of import"),
        ("tools/wrl/A.cpp", '#include "vrml/reader/SceneGraph.h"', None),
        ("tools/wrl/A.cpp", '#include "import/B.h"', "nothing of import"),
        ("tests/import/A.cpp", '#include "import/B.h"', None),
    ]

    def test_each_include_is_judged_by_its_folder(self):
        for name, line, wanted in self.ROWS:
            with self.subTest(name=name, line=line), tree({name: f"\n{line}\n"}) as root:
                findings = list(check_tree.check_layers(root))
                if wanted is None:
                    self.assertEqual(findings, [])
                else:
                    self.assertEqual([(path, number) for path, number, _ in findings], [(name, 2)])
                    self.assertIn(wanted, findings[0][2])


class Texts(unittest.TestCase):
    ROWS = [
        ("vrml/A.cpp", 'const char* k = "/' + 'home/someone/a.wrl";\n', "path of one machine"),
        ("run.sh", "cd /" + "root/project\n", "path of one machine"),
        ("docs/a.md", "see https://example.org/" + "home/a and host/" + "home\n", None),
        ("vrml/A.h", "class A;\n", "#pragma once"),
        ("vrml/B.h", "#pragma once\n", None),
        ("build/vrml/A.h", "\n", None),
    ]

    def test_each_text_is_judged(self):
        for name, text, wanted in self.ROWS:
            with self.subTest(name=name), tree({name: text}) as root:
                findings = list(check_tree.check_texts(root))
                if wanted is None:
                    self.assertEqual(findings, [])
                else:
                    self.assertEqual(len(findings), 1)
                    self.assertIn(wanted, findings[0][2])


class Names(unittest.TestCase):
    ROWS = [
        ("made by `Lexer::next` in `Lexer.cpp`", None),
        ("made by `Lexer::previous`", "Lexer::previous"),
        ("made in `Scanner.cpp`", "Scanner.cpp"),
        ("`./run.sh FILE` and `DEF a Group {` name nothing", None),
        ("```\nno `Name` here\n```", None),
    ]

    def test_each_name_of_the_document_is_looked_for(self):
        for text, wanted in self.ROWS:
            files = {"docs/architecture.md": text + "\n", "vrml/reader/Lexer.cpp": "Token Lexer::next() {}\n"}
            with self.subTest(text=text), tree(files) as root:
                findings = list(check_tree.check_names(root))
                if wanted is None:
                    self.assertEqual(findings, [])
                else:
                    self.assertEqual(len(findings), 1)
                    self.assertIn(wanted, findings[0][2])


class Headers(unittest.TestCase):
    def test_a_header_that_lacks_an_include_is_found(self):
        files = {
            "vrml/A.h": "#pragma once\nstd::string f();\n",
            "vrml/fields/A.h": "#pragma once\nstd::string f();\n",
            "vrml/fields/B.h": "#pragma once\n#include <string>\nstd::string f();\n",
        }
        with tree(files) as root:
            found = [path for path, _, _ in check_tree.check_headers(root, os.environ.get("CXX", "c++"))]
        self.assertEqual(found, ["vrml/fields/A.h"])


if __name__ == "__main__":
    unittest.main()
