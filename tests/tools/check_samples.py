"""For every check, a small tree that is as it should be, and changes to it that the check must find."""

FORM = "<ui><class>Panel</class></ui>"
PANEL_HEADER = "class Panel : public QWidget {\n};\n"
PANEL_SOURCE = '#include "panels/types/Panel.h"\n#include "ui_Panel.h"\n'


def boundary_header(text):
    return {"library/TavikThing.h": text}


def source(text):
    return {"app/Source.cpp": text}


CLASS = """namespace TavikLibrary {{
enum class eKind : int {{ One = 1 }};
/// A record.
struct Reading {{
    int code;
    double value;
}};
class Thing : public Base {{
public:
    class Implementation;
    explicit Thing(Implementation* implementation);
    virtual ~Thing();
    Thing(const Thing&) = delete;
    virtual int Read(int index = 0) const;
{}
private:
    Implementation* implementation;
}};
class TavikException : public std::runtime_error {{
    int errorCode;
}};
}}
"""

ERRORS = "enum class eTavikErrors : int {\n    NoError = 0,\n    Absent = 255,\n    Lost = 4097, ///< gone\n};\n"

SAMPLES = {
    "include-order": (
        {
            "library/TavikModule.h": "#include <string>\n",
            "panels/common/ErrorBox.h": "#include <QString>\n",
            "panels/types/Panel.h": '#include "library/TavikModule.h"\n#include "panels/common/ErrorBox.h"\n',
            "panels/types/Panel.cpp": PANEL_SOURCE,
            "panels/module/Module.cpp": '#include "panels/types/Panel.h"\n',
            "panels/modes/Mode.h": "",
            "app/MainWindow.h": '#include "panels/module/Module.h"\n',
            "panels/module/Module.h": "",
            "simulator/control/Control.h": '#include "library/TavikModule.h"\n',
            "simulator/bench/Bench.h": "",
            "tests/app/Test.cpp": '#include "simulator/control/Control.h"\n#include "app/MainWindow.h"\n#include "Test.moc"\n',
        },
        [
            {"library/TavikModule.h": '#include "panels/common/ErrorBox.h"\n'},
            {"library/TavikModule.h": "#include <QString>\n"},
            {"simulator/bench/Bench.h": "#include <QtCore/QString>\n"},
            {"simulator/bench/Bench.h": '#include "panels/common/ErrorBox.h"\n'},
            {"simulator/bench/Bench.h": '#include "simulator/control/Control.h"\n'},
            {"tests/panels/A.h": '#include "tests/app/B.h"\n', "tests/app/B.h": '#include "tests/panels/A.h"\n'},
            {"panels/common/ErrorBox.h": '#include "panels/types/Panel.h"\n'},
            {"panels/types/Panel.h": '#include "panels/module/Module.h"\n'},
            {"panels/types/Panel.h": '#include "ErrorBox.h"\n'},
            {"panels/types/Panel.h": '#include "../common/ErrorBox.h"\n'},
            {"panels/types/Panel.h": "#include <panels/common/ErrorBox.h>\n"},
            {"panels/modes/Mode.h": '#include "panels/types/Panel.h"\n'},
            {"panels/module/Module.cpp": '  # include "app/MainWindow.h"\n'},
            {"app/MainWindow.h": '#include "simulator/control/Control.h"\n'},
            {"panels/types/Panel.cpp": '#include "simulator/control/Control.h"\n'},
            {"tools/tour/Tour.cpp": '#include "simulator/bench/Bench.h"\n'},
            {"elsewhere/Thing.cpp": ""},
        ],
    ),
    "build-lists": (
        {
            "CMakeLists.txt": "foreach(room simulator app)\nadd_subdirectory(${room})\nadd_subdirectory(tests)\n",
            "tests/CMakeLists.txt": "add_subdirectory(deep)\n",
            "simulator/CMakeLists.txt": "add_subdirectory(signals)\n",
            "app/CMakeLists.txt": "add_library(tavik_shell main.cpp pages/Page.cpp ${PROJECT_SOURCE_DIR}/art/art.qrc)\n",
            "art/art.qrc": "",
            "tests/deep/CMakeLists.txt": "foreach(subject NoiseTest)\n  tavik_add_test(${subject} SOURCES ${subject}.cpp)\n",
            "tests/deep/NoiseTest.cpp": "",
            "simulator/signals/CMakeLists.txt": "add_library(tavik_signals ../modules/Physics.cpp)\n",
            "simulator/modules/Physics.cpp": "",
            "app/main.cpp": "",
            "app/pages/Page.cpp": "",
            "app/pages/Page.ui": "",
        },
        [
            {"app/Forgotten.cpp": ""},
            {"app/Forgotten.ui": ""},
            {"art/forgotten.qrc": ""},
            {"tests/deep/forgotten/CMakeLists.txt": ""},
            {"tests/CMakeLists.txt": "# add_subdirectory(deep)\n"},
            {"app/CMakeLists.txt": "add_library(tavik_shell main.cpp) # pages/Page.cpp\n"},
            {"app/Page.cpp": ""},
            {"tests/deep/SignalTest.cpp": ""},
            {"simulator/signals/Physics.cpp": ""},
        ],
    ),
    "forms": (
        {
            "panels/types/Panel.ui": FORM,
            "panels/types/Panel.h": PANEL_HEADER + "namespace Ui {\nclass Panel;\n}\n",
            "panels/types/Panel.cpp": PANEL_SOURCE,
            "panels/common/ErrorBox.h": "class ErrorBox {\n};\n",
        },
        [
            {"panels/types/Other.ui": FORM.replace("Panel", "Other")},
            {"panels/types/Panel.ui": FORM.replace("Panel", "Pannel")},
            {"panels/types/Panel.h": "class Panel;\n"},
            {"panels/types/Panel.cpp": '#include "panels/types/Panel.h"\n'},
            {"panels/common/ErrorBox.h": "std::unique_ptr<Ui::ErrorBox> ui;\n"},
            {"panels/common/Second.cpp": '#include "ui_Panel.h"\n'},
        ],
    ),
    "boundary": (
        boundary_header(CLASS.format("")),
        [
            boundary_header(CLASS.format("    int Size() const { return 1; }")),
            boundary_header(CLASS.format("    Thing() = default;")),
            boundary_header(CLASS.format("    int size;")),
            boundary_header(CLASS.format("    std::string text = {};")),
            boundary_header(CLASS.format("    Implementation* second;")),
            boundary_header(CLASS.format("").replace("eKind : int", "eKind")),
            boundary_header(CLASS.format("").replace("eKind : int", "eKind : short")),
            boundary_header(CLASS.format("").replace("    int errorCode", "    std::string text")),
            boundary_header(CLASS.format("").replace("    double value;", "    double value;\n    int Rounded() const;")),
            boundary_header("inline int Answer();\n"),
            boundary_header("int Answer() { return 42; }\n"),
            boundary_header("constexpr int answer = 42;\n"),
            boundary_header("/// The simulated bench answers 42.\nint Answer();\n"),
            {"library/TavikThing.cpp": ""},
        ],
    ),
    "leftovers": (
        source("// Waits until the gauge has settled; a slow one takes longer.\nwait(); // to be sure\n"),
        [
            source("// " + "TO" + "DO: wait\n"),
            source("wait(); /* FIX" + "ME */\n"),
            {"CMakeLists.txt": "# HA" + "CK\n"},
            source("// wait();\n"),
            source("    // int index = list->currentRow();\n"),
            source("    // if (index < 0) {\n"),
            source("    // return;\n"),
        ],
    ),
    "foreign": (
        {**source("// The module's part number, as the operator reads it off its label.\n"),
         "resources/logo.svg": '<svg xmlns="http://www.w3.org/2000/svg"/>'},
        [
            source('open("/ho' + 'me/someone/bench.xml");\n'),
            {"README.md": "Copy it to /ro" + "ot/bench.xml\n"},
            {"README.md": "Get it from ht" + "tps://mirror.example/bench\n"},
            source("// As the sp" + "ec says.\n"),
            source("// See Pa" + "rt 2.1.\n"),
            source("// Fixes iss" + "ue 12.\n"),
        ],
    ),
    "file-length": (
        source("\n" * 400),
        [source("\n" * 401)],
    ),
    "layout": (
        {**source("int Answer()\n{\n    return 42;\n}\n"),
         ".clang-format": "BasedOnStyle: LLVM\nIndentWidth: 4\nBreakBeforeBraces: Linux\nAllowShortFunctionsOnASingleLine: None\n"},
        [
            source("int Answer() { return 42; }\n"),
            source("int Answer()\n{\n  return 42;\n}\n"),
            {".clang-format": "NoSuchOption: 1\n"},
        ],
    ),
    "links": (
        {
            "README.md": "# Bench\n\nSee [how](docs/how.md), [where](docs), ![it](docs/images/it.png) and [when](docs/how.md#the-first-time).\n"
                         "[here](#bench), [mail](mailto:a@b)\n```\n[no link](nowhere.md)\n```\nin `[code](nowhere.md)`\n",
            "docs/how.md": "# How\n## The first time?\n[back](../README.md)\n",
            "docs/images/it.png": "",
        },
        [
            {"README.md": "[how](docs/how-to.md)\n"},
            {"README.md": "![it](images/it.png)\n"},
            {"README.md": "[when](docs/how.md#the-last-time)\n"},
            {"README.md": "# Bench\n[here](#table)\n"},
            {"docs/how.md": "[back](README.md)\n"},
        ],
    ),
    "errors-explained": (
        {
            "library/TavikEnums.h": ERRORS,
            "docs/manual/errors.md": "| 0x1001 | 4097 | no network | connect it |\n| 0xFF | 255 | nothing there | |\n",
        },
        [
            {"docs/manual/errors.md": "| 0x1001 | 4097 | no network | connect it |\n"},
            {"docs/manual/errors.md": "| 0x1001 | 4098 | no network | |\n| 0xFF | 255 | nothing there | |\n"},
            {"library/TavikEnums.h": ERRORS.replace("4097", "4099")},
        ],
    ),
    "pictures-shown": (
        {"docs/manual/README.md": "![A gauge](images/gauge.png)\n", "docs/manual/images/gauge.png": ""},
        [{"docs/manual/images/laser.png": ""}],
    ),
}
