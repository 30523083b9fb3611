import QtQuick
import QtQuick3D

View3D {
    id: view

    // The walls of the studio, after the cases of SceneContent.
    readonly property int studioContent: 6

    camera: camera
    environment: SceneEnvironment {
        backgroundMode: SceneEnvironment.Color
        clearColor: quickScene.backdropColor
        antialiasingMode: SceneEnvironment.MSAA
        antialiasingQuality: SceneEnvironment.High
        // The shader does that itself.
        tonemapMode: SceneEnvironment.TonemapModeNone
    }

    PerspectiveCamera {
        id: camera
        position: quickScene.cameraPosition
        eulerRotation: Qt.vector3d(-quickScene.elevation, quickScene.side, 0)
        fieldOfView: 35
        clipNear: 0.05
        clipFar: 200
    }

    component MapTexture: Texture {
        generateMipmaps: true
        mipFilter: Texture.Linear
        tilingModeHorizontal: Texture.Repeat
        tilingModeVertical: Texture.Repeat
    }

    component Surface: CustomMaterial {
        shadingMode: CustomMaterial.Unshaded
        vertexShader: "surface.vert"
        fragmentShader: "surface.frag"

        property int content: quickScene.content
        property real tiling: quickScene.tiling
        property real exposure: quickScene.exposureFactor
        property vector3d lampDirection: quickScene.lampDirection
        property real lampLight: quickScene.lampLight
        property TextureInput baseColorMap: TextureInput { texture: baseColor }
        property TextureInput ormMap: TextureInput { texture: orm }
        property TextureInput normalMap: TextureInput { texture: normal }
        property TextureInput lightAtlas: TextureInput { texture: atlas }
    }

    MapTexture { id: baseColor; textureData: quickScene.baseColor }
    MapTexture { id: orm; textureData: quickScene.orm }
    MapTexture { id: normal; textureData: quickScene.normal }
    Texture {
        id: atlas
        textureData: quickScene.lightAtlas
        tilingModeHorizontal: Texture.ClampToEdge
        tilingModeVertical: Texture.ClampToEdge
    }

    Model {
        geometry: quickScene.geometry
        materials: Surface {}
    }

    Model {
        visible: quickScene.showsStudio
        source: "#Sphere"
        materials: Surface {
            content: view.studioContent
            cullMode: Material.NoCulling
        }
    }
}
