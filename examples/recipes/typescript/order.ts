// A TypeScript project: the form has a type, so has every control that says which kind it is.
import { GuiWindow, html, type ListControl } from 'tarn-gui';

interface Order {
    who: string;
    milk: string | null;
    drink: string;
}

class OrderWindow extends GuiWindow<Order> {
    onOrder(): void {
        const { who, milk, drink } = this.form;
        this.setReturnValue(`${drink}${milk ? ' with milk' : ''} for ${who.toUpperCase()}`);
        this.close();
    }
}

const window = OrderWindow.from(html`<title>Order</title><body width="300" height="180" valign="top" cellpadding="10">
    <p><input type="text" name="who"></p><p><select name="drink"><option value="tea">tea</select></p>
    <p><input type="checkbox" name="milk" value="yes"> <input type="button" name="order" value="Order" onclick="event://onOrder"></p>`);
window.control<ListControl>('drink')?.addItem('coffee');
window.form.drink = 'coffee';
window.setFocus('who');
window.showAsync().then((order) => console.log(order));
