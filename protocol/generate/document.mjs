import { document, gateway, messages, nameOf } from '../table.mjs';
import { json } from './json.mjs';
import { mark } from './mark.mjs';

/** The AsyncAPI document: every channel, operation and message, from the program's side. */

const { channels, parameters } = messages;
const all = messages.messages;
const reference = (...steps) => ({ $ref: `#/${steps.join('/')}` });
const table = (list, value) => Object.fromEntries(list.map((each) => [each.name, value(each)]));

function parametersOf(address) {
    const names = [...address.matchAll(/\{(\w+)\}/g)].map(([, name]) => name);
    const described = names.map((name) => [name, { description: parameters[name] }]);
    return names.length > 0 && { parameters: Object.fromEntries(described) };
}

const query = {
    type: 'object',
    properties: table(gateway.query, ({ schema, meaning }) => ({
        ...schema,
        description: meaning,
    })),
    required: gateway.query.filter(({ required }) => required).map(nameOf),
};
const headers = {
    type: 'object',
    properties: {
        'Sec-WebSocket-Protocol': {
            type: 'string',
            description: `"${gateway.subProtocol}, ${gateway.tokenProtocol}TOKEN".`,
        },
    },
};
const bindings = { ws: { method: 'GET', bindingVersion: '0.1.0', query, headers } };

function channel([name, { address, title, meaning }]) {
    const isSocket = name === 'socket';
    const more = isSocket ? ` Sub-protocol "${gateway.subProtocol}".` : '';
    const travelling = all.filter((message) => message.channel === name);
    const described = {
        address,
        title,
        description: meaning + more,
        servers: [reference('servers', isSocket ? 'gateway' : 'bus')],
        ...parametersOf(address),
        ...(isSocket && { bindings }),
        messages: table(travelling, (each) => reference('components/messages', each.name)),
    };
    return [name, described];
}

function operation({ name, way, channel: on, does }) {
    return {
        action: way === 'down' ? 'send' : 'receive',
        channel: reference('channels', on),
        summary: does,
        messages: [reference('channels', on, 'messages', name)],
    };
}

function message({ name, title, meaning, contentType, schema, examples }) {
    const payload = `./schemas/${schema ?? `life-cycle.json#/definitions/${name}`}`;
    return {
        name,
        title,
        summary: meaning,
        ...(contentType && { contentType }),
        payload: { $ref: payload },
        examples: examples.map((each, index) => ({
            name: `${name}Example${index + 1}`,
            payload: each,
        })),
    };
}

const { securitySchemes, ...head } = document;
const text = json({
    ...head,
    info: { ...head.info, 'x-made': mark },
    channels: Object.fromEntries(Object.entries(channels).map(channel)),
    operations: Object.fromEntries(all.map((each) => [each.operation, operation(each)])),
    components: { messages: table(all, message), securitySchemes },
});

export const outputs = [['docs/protocol/asyncapi.json', `${text}\n`]];
