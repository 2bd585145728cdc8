#include "python/bindings.h"
#include "services/logging/messagebox.h"
#include <cstring>

// Each source that uses the library looks for this name, so that nobody mixes two heaps. The module
// has the library in itself, over the heap of the process: see README.md.
extern "C" __attribute__((visibility("hidden")))
const char hdlbuildfile_module_links_the_shared_heap;
const char hdlbuildfile_module_links_the_shared_heap = 1;

namespace {

/// What the library would tell a user at a screen is in the exceptions.
class TSilentMessageBox : public IMessageBox {
public:
    void ShowMessage(const char*, const char*, int) override {}
};

/// Objects that Python makes by itself would have no build.
PyObject* RefuseNew(PyTypeObject* type, PyObject*, PyObject*) {
    const bool isBuild = std::strcmp(type->tp_name, "hdlbuildfile.Build") == 0;
    return PyErr_Format(PyExc_TypeError, "%s cannot be called: %s", type->tp_name,
                        isBuild ? "use Build.read() or Build.new()" : "a build gives its objects");
}

}  // namespace

void TakeConstructor(const py::handle& type) {
    auto* const object = reinterpret_cast<PyTypeObject*>(type.ptr());
    object->tp_new = &RefuseNew;
    PyType_Modified(object);
}

PYBIND11_MODULE(_core, module) {
    module.doc() = "The compiled part of hdlbuildfile.";
    module.attr("__version__") = HDLBUILDFILE_VERSION;
    static TSilentMessageBox& box = *new TSilentMessageBox;
    Fileservices::SetMessageBox(&box);
    // The classes are called by the name of the package.
    const py::object name = module.attr("__name__");
    module.attr("__name__") = "hdlbuildfile";
    BindSources(module);
    TBuildClass build = BindBuilds(module);
    BindReports(module, build);
    module.attr("__name__") = name;
}
