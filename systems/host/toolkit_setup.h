#pragma once

#include <QApplication>
#include <memory>

namespace trelin {

// Makes Qt's application object with everything that the toolkit needs of it.
// Qt takes its own options out of the arguments, which have to outlive it.
std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv);

}  // namespace trelin
