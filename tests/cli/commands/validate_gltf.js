// node validate_gltf.js FILE: prints every issue of the document and of the files that it names. Fails if an issue is
// an error or a warning.
'use strict';

const fs = require('fs');
const path = require('path');
const validator = require('gltf-validator');

const file = process.argv[2];

validator
    .validateBytes(new Uint8Array(fs.readFileSync(file)), {
        uri: path.basename(file),
        format: 'gltf',
        maxIssues: 0,
        externalResourceFunction: async (uri) =>
            new Uint8Array(fs.readFileSync(path.join(path.dirname(file), decodeURIComponent(uri)))),
    })
    .then((report) => {
        const { issues } = report;
        for (const message of issues.messages) {
            console.log(`${message.code} at ${message.pointer}: ${message.message}`);
        }
        process.exitCode = issues.numErrors + issues.numWarnings > 0 ? 1 : 0;
    })
    .catch((error) => {
        console.error(error);
        process.exitCode = 2;
    });
