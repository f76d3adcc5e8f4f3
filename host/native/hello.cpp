// host/native/hello.cpp: a window from a page, three handlers, and the answer of the user.
#include "host/native/nativehost.h"

#include <cstdio>

int main()
{
    NativeHost host({.folder = TARN_HELLO_FOLDER});
    NativeWindow window = host.window("hello.html");
    if (!window.isValid())
        return 1;

    window.on("onGreet", [&host](NativeWindow& self, NativeArguments const&) {
        NativeObjectRef form = host.session("currentForm").object();
        self.setTitle("Hello, " + form->get("person").text() + "!");
    });
    window.on("onAnswer", [](NativeWindow& self, NativeArguments const& args) {
        self.setReturnValue(args[1]); // args[0] is the element that was clicked
        self.close();
    });
    window.on("ePostOpen", [](NativeWindow& self, NativeArguments const&) -> NativeValue {
        std::printf("\"%s\" is open\n", self.title().c_str());
        return nullptr;
    });

    NativeValue answer = window.show();
    std::printf("the answer is %s\n", answer.isNull() ? "missing" : answer.text().c_str());
}
