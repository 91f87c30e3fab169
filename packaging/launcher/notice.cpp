#include <QApplication>
#include <QMessageBox>

#include <cstdlib>
#include <cxxabi.h>
#include <iostream>
#include <memory>
#include <string>

// Shows the text that tells why the program cannot be started. It does without the gauge library, whose absence is
// what there is to tell.

namespace {

/// A name of the dynamic linker as the library's headers write it; as it came if it is none.
std::string Readable(const std::string& name) {
    const std::unique_ptr<char, decltype(&std::free)> text(abi::__cxa_demangle(name.c_str(), nullptr, nullptr, nullptr),
                                                           &std::free);
    QString readable = QString::fromUtf8(text ? text.get() : name.c_str());
    readable.replace(QLatin1String("std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >"),
                     QLatin1String("std::string"));
    return readable.remove(QLatin1String("[abi:cxx11]")).remove(QLatin1String("TavikLibrary::")).toStdString();
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc == 2 && argv[1] == std::string("--readable")) {
        for (std::string name; std::getline(std::cin, name);) {
            std::cout << Readable(name) << '\n';
        }
        return 0;
    }
    const QApplication application(argc, argv);
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Tavik Library Test"), QCoreApplication::arguments().value(1),
                    QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
    return 0;
}
