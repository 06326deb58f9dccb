// A plugin for clang that lets Objective-C with ARC, automatic properties and instance variables in
// implementations compile for GCC's Objective-C runtime, whose binary interface GNUstep's libraries have.
// Clang's code generator can do it; only its option parser refuses. So the parser is shown a modern runtime
// and the code generator GCC's, by two consumers of the syntax tree, one before the code generator and one
// after it.
#include <clang/AST/ASTConsumer.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

namespace {

const clang::ObjCRuntime gccRuntime(clang::ObjCRuntime::GCC, {});
const clang::ObjCRuntime modernRuntime(clang::ObjCRuntime::GNUstep, llvm::VersionTuple(1, 9));

class ShowRuntime : public clang::ASTConsumer {
  public:
    ShowRuntime(clang::LangOptions& options, const clang::ObjCRuntime& runtime)
        : options_(options)
        , runtime_(runtime) {}

    // The code generator is set up between the two consumers. With ARC it would write another interface.
    void Initialize(clang::ASTContext&) override {
        options_.ObjCAutoRefCount = runtime_.getKind() != clang::ObjCRuntime::GCC;
    }

    bool HandleTopLevelDecl(clang::DeclGroupRef) override {
        options_.ObjCRuntime = runtime_;
        return true;
    }

    void HandleTranslationUnit(clang::ASTContext&) override { options_.ObjCRuntime = runtime_; }

  private:
    clang::LangOptions& options_;
    clang::ObjCRuntime runtime_;
};

class Action : public clang::PluginASTAction {
  protected:
    bool ParseArgs(const clang::CompilerInstance&, const std::vector<std::string>&) override { return true; }
};

class BeforeCodeGenerator : public Action {
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance& compiler,
                                                          llvm::StringRef) override {
        auto& options = compiler.getLangOpts();
        options.ObjCAutoRefCount = 1;
        options.ObjCWeakRuntime = 1;
        options.ObjCWeak = 1;
        options.ObjCDefaultSynthProperties = 1;
        return std::make_unique<ShowRuntime>(options, gccRuntime);
    }

    ActionType getActionType() override { return AddBeforeMainAction; }
};

class AfterCodeGenerator : public Action {
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance& compiler,
                                                          llvm::StringRef) override {
        return std::make_unique<ShowRuntime>(compiler.getLangOpts(), modernRuntime);
    }

    ActionType getActionType() override { return AddAfterMainAction; }
};

const clang::FrontendPluginRegistry::Add<BeforeCodeGenerator> before("arc-before", "");
const clang::FrontendPluginRegistry::Add<AfterCodeGenerator> after("arc-after", "");

} // namespace
