'use strict';
const { GuiWindow } = require('../../host/node');

class Hello extends GuiWindow {
    onGreet(session, name) { this.setTitle(`Hello, ${name}`); }
    onLeave() { this.setReturnValue('goodbye'); this.close(); }
}

console.log(new Hello('hello.html').show());
